#include "settings/frmOptions.h"

#include <string>
#include <string_view>

#include "base/Value.h"
#include "workspace/ProgramSettings.h"

namespace tarnwell::settings {
namespace {

using workspace::ProgramSettings;

// The frames as they are drawn: one in sight, the other beside the dialog.
constexpr base::Twips FrameInSight = 2040;
constexpr base::Twips FrameOutOfSight = 20400;
constexpr base::Twips FrameTop = 120;

constexpr std::int32_t CountInsteadOfBad = 50;

struct OptionsRow {
  std::string_view Caption;
  bool ProgramSettings::*Setting;
};

constexpr OptionsRow OptionsRows[frmOptions::RowCount] = {
    {"Get File Icons", &ProgramSettings::ShowFileIcons},
    {"Get Folder Icons", &ProgramSettings::ShowFolderIcons},
    {"Show Color Coding", &ProgramSettings::ShowColor},
};

// Its setting has effects of its own.
constexpr std::size_t ColourRow = 2;

constexpr std::size_t YesOf(std::size_t row) {
  return 2 * row;
}
constexpr std::size_t NoOf(std::size_t row) {
  return 2 * row + 1;
}

OptionsCategory Other(OptionsCategory category) {
  return category == OptionsCategory::General ? OptionsCategory::Speed : OptionsCategory::General;
}

// Throws base::ConversionError for what is no number of files.
std::int32_t FileCountOf(const std::string& text) {
  if (base::ToDouble(text) < 0) throw base::ConversionError("number below zero");
  return base::ToInt32(text);
}

}  // namespace

void frmOptions::Load() {
  Caption = "Options";
  Frame1.Caption = "Category";
  lblGeneral.Caption = frmGeneral.Caption = "General";
  lblSpeed.Caption = frmSpeed.Caption = "Speed";
  Frame3.Caption = "Minimizing";
  optMin[0].Caption = "Minimize to Task Bar";
  optMin[1].Caption = "Minimize to System Tray (clock area)";
  Frame4.Caption = "Operations at Work";
  optOperations[0].Caption = "Show Below the Panes";
  optOperations[1].Caption = "Show in a Window of Their Own";
  lblSlower.Caption = "Slower";
  lblFaster.Caption = "Faster";
  lblNumColor.Caption = "Only show color coding when there are less than:";
  lblFiles.Caption = "files.";
  cmdOK.Caption = "OK";
  cmdOK.Default = true;
  cmdApply.Caption = "Apply";
  Put(frmGeneral, {FrameInSight, FrameTop});
  Put(frmSpeed, {FrameOutOfSight, FrameTop});

  visible_ = {frmGeneral.Left, frmGeneral.Top};
  hidden_ = {frmSpeed.Left, frmSpeed.Top};
  lblGeneral.ForeColour = lblSpeed.ForeColour = OtherLabel;
  category_ = OptionsCategory::None;
  shownCount_ = space_.Settings.FileCountMax;
  txtNumColor.Text = base::ToText(shownCount_);
  for (std::size_t row = 0; row < RowCount; ++row) {
    lblRow[row].Caption = OptionsRows[row].Caption;
    chk[YesOf(row)].Caption = "Yes";
    chk[NoOf(row)].Caption = "No";
    chk[YesOf(row)].Checked = chk[NoOf(row)].Checked = false;
  }
  for (std::size_t row = 0; row < RowCount; ++row) {
    Check(Setting(row) ? YesOf(row) : NoOf(row), true);
  }
  Select(space_.Settings.MinimizeToTaskBar ? 0 : 1);
  SelectOperations(space_.Settings.OperationsInWindow ? 1 : 0);
  ShowOptions(OptionsCategory::General);
}

void frmOptions::Put(forms::Frame& frame, const Slot& slot) {
  frame.Left = slot.Left;
  frame.Top = slot.Top;
}

forms::Label& frmOptions::LabelOf(OptionsCategory category) {
  return category == OptionsCategory::Speed ? lblSpeed : lblGeneral;
}

bool frmOptions::Setting(std::size_t row) const {
  return space_.Settings.*OptionsRows[row].Setting;
}

void frmOptions::ShowOptions(OptionsCategory category) {
  if (category == category_) return;
  category_ = category;
  LabelOf(category).ForeColour = ChosenLabel;
  LabelOf(Other(category)).ForeColour = OtherLabel;
  const bool general = category == OptionsCategory::General;
  Put(general ? frmGeneral : frmSpeed, visible_);
  Put(general ? frmSpeed : frmGeneral, hidden_);
  Touch();
}

void frmOptions::ResetColors() {
  forms::Label& label = LabelOf(Other(category_));
  if (label.ForeColour == OtherLabel) return;
  label.ForeColour = OtherLabel;
  Touch();
}

void frmOptions::LabelMouseMove(OptionsCategory category) {
  if (category == category_) return;
  LabelOf(category).ForeColour = HoverLabel;
  Touch();
}

void frmOptions::Check(std::size_t box, bool on) {
  if (chk[box].Checked == on) return;
  chk[box].Checked = on;
  chkClick(box);
}

void frmOptions::chkClick(std::size_t box) {
  ++clicks_;
  if (clicks_ == 1) Check(box ^ 1, !chk[box].Checked);
  if (--clicks_ != 0) return;
  Touch();
  ProgramSettings& settings = space_.Settings;
  const std::size_t row = box / 2;
  const bool yes = chk[YesOf(row)].Checked;
  if (row == ColourRow) {
    switches_.ShowColor(yes);
  } else {
    settings.*OptionsRows[row].Setting = yes;
  }
  skin_.SendProperty("ShowFileIcons", settings.ShowFileIcons);
  skin_.SendProperty("ShowFolderIcons", settings.ShowFolderIcons);
}

void frmOptions::Select(std::size_t option) {
  for (std::size_t i = 0; i < optMin.size(); ++i) optMin[i].Selected = i == option;
  space_.Settings.MinimizeToTaskBar = optMin[0].Selected;
  Touch();
}

void frmOptions::SelectOperations(std::size_t option) {
  for (std::size_t i = 0; i < optOperations.size(); ++i) optOperations[i].Selected = i == option;
  space_.Settings.OperationsInWindow = optOperations[1].Selected;
  Touch();
}

void frmOptions::Apply() {
  std::int32_t& count = space_.Settings.FileCountMax;
  try {
    shownCount_ = count = FileCountOf(txtNumColor.Text);
    skin_.SendProperty("FileCountMax", count);
  } catch (const base::ConversionError&) {
    shownCount_ = count = CountInsteadOfBad;
    txtNumColor.Text = base::ToText(count);
    Touch();
  }
}

void frmOptions::cmdOKClick() {
  Apply();
  Close();
}

void frmOptions::ShowSettings() {
  // While it loads, it shows one setting after another.
  if (View == nullptr || category_ == OptionsCategory::None) return;
  const ProgramSettings& settings = space_.Settings;
  for (std::size_t row = 0; row < RowCount; ++row) {
    chk[YesOf(row)].Checked = Setting(row);
    chk[NoOf(row)].Checked = !Setting(row);
  }
  for (std::size_t i = 0; i < optMin.size(); ++i) {
    optMin[i].Selected = settings.MinimizeToTaskBar == (i == 0);
    optOperations[i].Selected = settings.OperationsInWindow == (i == 1);
  }
  if (settings.FileCountMax != shownCount_) {
    shownCount_ = settings.FileCountMax;
    txtNumColor.Text = base::ToText(shownCount_);
  }
  Touch();
}

}  // namespace tarnwell::settings
