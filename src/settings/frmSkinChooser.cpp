#include "settings/frmSkinChooser.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "settings/RecordWriter.h"

namespace tarnwell::settings {
namespace {

// Where the input boxes stand, from the form's upper left corner, in twips.
constexpr base::Twips BoxLeft = 500;
constexpr base::Twips BoxTop = 1400;

// What Import takes off a file's name, whatever it is.
constexpr std::size_t EndingLength = 4;

// The order of the colours in a skin file.
constexpr std::array FileOrder = {
    ColorProgramBackground, ColorPaneBackground,      ColorListBackground,
    ColorListText,          ColorMainToolbar,         ColorMinorToolbar,
    ColorActiveListOutline, ColorInActiveListOutline, ColorActiveTitle,
    ColorInactiveTitle,     ColorActiveTitleText,     ColorInactiveTitleText,
    ColorDriveList,         ColorDriveText,           ColorActiveHeading,
    ColorInactiveHeading,   ColorActiveHeadingText,   ColorInactiveHeadingText,
    ColorHeadingHoverText,  ColorStatusBackground,    ColorStatusText,
    ColorActiveItemOutline, ColorActiveItemUnderline, ColorCurrentFolderText,
    ColorCommandLineList,   ColorCommandLineText,     ColorMainMenu,
    ColorTextSecondary,
};
static_assert(FileOrder.size() == SkinColourCount);

constexpr const char* UseDifferentName = "\r\n\r\nPlease use a different name.";

std::string CapitalsOf(const std::string& name) {
  return base::ToCapitals(name);
}

platform::FileQuestion AskFor(const char* title, const std::string& folder) {
  return {.Title = title,
          .FilterName = "Tarnwell Skins",
          .FilterPattern = "*.twk",
          .DefaultSuffix = "twk",
          .Name = {},
          .Folder = folder};
}

}  // namespace

frmSkinChooser::frmSkinChooser(const ChooserServices& services, const SettingTargets& targets,
                               Skin& skin, SkinFiles& skins, double version)
    : Form("frmSkinChooser"),
      services_(services),
      targets_(targets),
      skin_(skin),
      skins_(skins),
      version_(version),
      colourDialog_(services.Dialogs) {
  Caption = "Skin Chooser...";
  TabStrip1.Caption = "Skins";
  cmdLoad.Caption = "Load";
  cmdSave.Caption = "Save";
  cmdResave.Caption = "Resave";
  cmdRename.Caption = "Rename";
  cmdDel.Caption = "Delete";
  cmdImport.Caption = "Import";
  cmdExport.Caption = "Export";
  Frame1.Caption = "Color Scheme";
  for (std::size_t index = 0; index < SkinColourCount; ++index) {
    lblItem[index].Caption = SkinColourLabels[index];
    cmdChoose[index].Caption = "...";
  }
  cmdOK.Caption = "OK";
  cmdOK.Default = true;
  cmdCancel.Caption = "Cancel";
  // The toolbar of the main form loads skins, too.
  skin_.OnLoaded([this] {
    if (View != nullptr) FillPictureBoxes();
  });
}

void frmSkinChooser::Load() {
  held_ = NoColour;
  closingWord_.clear();
  colourDialog_.Clear();
  FillPictureBoxes();
  FillSkinList();
}

void frmSkinChooser::ColorChooser(forms::Form& owner) {
  services_.Host.Open(*this);
  CentreOn(owner);
  services_.Host.Show(*this, &owner);
  const std::string current = base::ToCapitals(targets_.Space.Settings.SkinName);
  const auto found = std::ranges::find(lstSkins.Items, current, CapitalsOf);
  lstSkins.ListIndex =
      found == lstSkins.Items.end() ? -1 : static_cast<int>(found - lstSkins.Items.begin());
  Touch();
}

void frmSkinChooser::FillPictureBoxes() {
  for (std::size_t index = 0; index < SkinColourCount; ++index) {
    Picture1[index].BackColour = targets_.Colours[index];
  }
  saved_ = targets_.Colours;
  Touch();
}

void frmSkinChooser::FillSkinList() {
  lstSkins.Clear();
  lstSkins.Items = skins_.List();
  Touch();
}

void frmSkinChooser::lstSkinsClick(int index) {
  lstSkins.ListIndex = index < static_cast<int>(lstSkins.Items.size()) ? index : -1;
}

void frmSkinChooser::Tell(const std::string& text) {
  services_.Messenger.Message(text, forms::MessageKind::Ok, Name());
}

std::string frmSkinChooser::Ask(const std::string& text, forms::MessageKind kind) {
  services_.Messenger.Message(text, kind, Name());
  return services_.Messenger.MessageResult();
}

std::optional<std::string> frmSkinChooser::Selected(const char* noneText, const char* defaultText) {
  if (lstSkins.ListIndex < 0) {
    Tell(noneText);
    return {};
  }
  std::string name = lstSkins.Text();
  if (defaultText != nullptr && IsDefaultSkin(name)) {
    Tell(defaultText);
    return {};
  }
  return name;
}

void frmSkinChooser::LoadFromList() {
  const auto name = Selected("Please choose a skin name first from the list.");
  if (!name) return;
  skin_.LoadSkin(*name);
  FillPictureBoxes();
}

// --- Colours

void frmSkinChooser::SetColourItem(std::size_t index, base::Colour colour) {
  if (colour >= 0) ShowColour(index, colour);
}

void frmSkinChooser::ShowColour(std::size_t index, base::Colour colour) {
  try {
    Picture1[index].BackColour = colour;
    targets_.Colours[index] = colour;
    skin_.ApplySkinChange();
  } catch (const std::exception&) {
    Tell("An error occurred while making the skin change.");
  }
  Touch();
}

void frmSkinChooser::cmdChooseClick(std::size_t index) {
  const base::Colour before = Picture1[index].BackColour;
  const base::Colour chosen = colourDialog_.ShowColor(before, [this, index](base::Colour colour) {
    if (Picture1[index].BackColour != colour) SetColourItem(index, colour);
  });
  if (chosen != NoColour) {
    SetColourItem(index, chosen);
  } else if (Picture1[index].BackColour != before) {
    ShowColour(index, before);
  }
}

void frmSkinChooser::Picture1Click(std::size_t index) {
  if (held_ == NoColour) {
    held_ = Picture1[index].BackColour;
  } else {
    SetColourItem(index, std::exchange(held_, NoColour));
  }
  Touch();
}

void frmSkinChooser::DropHeldColour() {
  held_ = NoColour;
  Touch();
}

// --- Names and files

bool frmSkinChooser::IsValidSkinName(const std::string& name) {
  if (name.find_first_of(".?'\"\\/") == std::string::npos) return true;
  Tell("Please don't use unusual punctuation in the skin name.");
  return false;
}

std::optional<std::string> frmSkinChooser::AskName(const NameQuestion& question,
                                                   const std::string& offered) {
  const auto isNoDefault = [this, &question](const std::string& name) {
    if (!IsDefaultSkin(name)) return true;
    Tell(std::string(question.DefaultName) + UseDifferentName);
    return false;
  };
  std::string start = offered;
  for (;;) {
    const std::optional<std::string> typed = services_.Dialogs.AskText(
        {.Title = question.Title,
         .Prompt = question.Prompt,
         .Text = start,
         .Place = platform::ScreenPlace{.Left = Left + BoxLeft, .Top = Top + BoxTop}});
    // Blanks around a name would be lost in the list.
    const std::string name(base::Trim(typed.value_or("")));
    if (name.empty()) return {};
    if (question.KeepsTyped) start = name;
    const bool good = question.DefaultFirst ? isNoDefault(name) && IsValidSkinName(name)
                                            : IsValidSkinName(name) && isNoDefault(name);
    if (good) return name;
    if (View == nullptr) return {};  // the program has been asked to end meanwhile
  }
}

std::string frmSkinChooser::Content() const {
  std::string content;
  AppendRecord(content, {"Version", {version_, "Tarnwell Skin", 0, 0, 0}});
  for (const SkinColour colour : FileOrder) {
    AppendRecord(content, {std::string(SkinColourKeys[colour]), {targets_.Colours[colour]}});
  }
  return content;
}

base::Status frmSkinChooser::SaveSkin(const std::string& name, bool& saved) {
  base::Status status = skins_.Write(name, Content());
  for (std::size_t index = 0; index < SkinColourCount; ++index) {
    saved_[index] = Picture1[index].BackColour;
  }
  targets_.Space.Settings.SkinName = name;
  saved = true;
  FillSkinList();
  return status;
}

void frmSkinChooser::SaveCurrentSkin(const std::string& word, bool& saved) {
  saved = false;
  const char* const prompt = word == "OK"
                                 ? "You have changed the skin but have not yet saved it. Please "
                                   "provide a name for this skin now:"
                                 : "Please provide a name for this skin:";
  const auto name = AskName({.Title = "Save Current Skin",
                             .Prompt = prompt,
                             .DefaultName = "Sorry, you cannot save over any of the default skins.",
                             .DefaultFirst = true,
                             .KeepsTyped = true},
                            "");
  if (name) SaveSkin(*name, saved);
}

void frmSkinChooser::cmdSaveClick() {
  bool saved = false;
  SaveCurrentSkin("", saved);
}

void frmSkinChooser::cmdResaveClick() {
  const auto old = Selected("Please choose a skin to resave first.",
                            "Sorry, you cannot resave any of the default skins.");
  if (!old) return;
  const auto name =
      AskName({.Title = "Resave skin...",
               .Prompt = "Press OK to resave the skin. Change name first if desired.",
               .DefaultName = "Sorry, you cannot resave over any of the default skins.",
               .DefaultFirst = true},
              *old);
  if (!name) return;
  bool saved = false;
  // The old one goes only when the new one is there.
  base::Status status = SaveSkin(*name, saved);
  if (!status) return;
  const bool isSame = base::ToCapitals(base::Trim(*old)) == base::ToCapitals(*name);
  status = isSame ? skins_.Rename(*old, *name) : skins_.Remove(*old);
  FillSkinList();
  if (!status) TellFailure("removed", *old, status);
}

void frmSkinChooser::cmdRenameClick() {
  const auto old = Selected("Please select a skin to rename first.",
                            "Sorry, you cannot rename any of the default skins.");
  if (!old) return;
  const auto name =
      AskName({.Title = "Save Current Skin",
               .Prompt = "Please provide a new name for this skin:",
               .DefaultName = "Sorry, you cannot use the name of any of the default skins."},
              *old);
  if (!name) return;
  const base::Status status = skins_.Rename(*old, *name);
  FillSkinList();
  if (!status) TellFailure("renamed", *old, status);
}

void frmSkinChooser::cmdDelClick() {
  const auto name = Selected("Please choose a skin to delete first.",
                             "Sorry, you cannot delete any of the default skins.");
  if (!name) return;
  const std::string question = "Are you sure you want to delete the skin: " + *name + " ?";
  if (Ask(question, forms::MessageKind::YesNo) != "YES") return;
  const base::Status status = skins_.Remove(*name);
  FillSkinList();
  if (!status) TellFailure("deleted", *name, status);
}

void frmSkinChooser::TellFailure(const char* done, const std::string& name,
                                 const base::Status& status) {
  Tell("The skin " + name + " could not be " + done + ":\r\n" + status.Reason);
}

void frmSkinChooser::cmdExportClick() {
  const auto name = Selected("Please select a skin to export first.");
  if (!name) return;
  platform::FileQuestion question = AskFor("Export Tarnwell Skin", services_.Drives.HomeFolder());
  question.Name = *name + ".twk";
  const auto path = services_.Dialogs.AskSaveFile(question);
  if (path && !skins_.Export(*name, *path)) Tell("An error occurred while exporting the skin.");
}

void frmSkinChooser::cmdImportClick() {
  const auto path =
      services_.Dialogs.AskOpenFile(AskFor("Import Tarnwell Skin", services_.Drives.HomeFolder()));
  if (!path) return;
  const std::string_view file = services_.Files.Syntax().LastComponent(*path);
  const std::size_t length = base::CodePointCount(file);
  const std::string name(base::FirstCodePoints(file, length - std::min(length, EndingLength)));
  const std::string capitals = base::ToCapitals(name);
  if (std::ranges::find(lstSkins.Items, capitals, CapitalsOf) != lstSkins.Items.end()) {
    Tell("You already have a skin by that name (" + name +
         ").\r\n\r\nPlease delete or rename the existing skin first if you wish to import the new "
         "one.");
    return;
  }
  const base::Status status = skins_.Import(*path, name);
  FillSkinList();
  if (!status) TellFailure("imported", *path, status);
}

// --- Closing

bool frmSkinChooser::IsChanged() const {
  return !std::ranges::equal(Picture1, saved_, {}, &forms::Picture::BackColour);
}

bool frmSkinChooser::QueryUnload() {
  if (View == nullptr || !IsChanged()) return true;
  const std::string answer =
      Ask("You have made changes to the skin but have not saved these changes.\r\n\r\n"
          "Do you wish to save these changes now? (Choose 'No' to lose your changes.)",
          forms::MessageKind::YesNoCancel);
  if (answer == "YES") {
    bool saved = false;
    SaveCurrentSkin("", saved);
    if (saved) return true;
    if (Ask("Skin not saved.\r\n\r\nDo you wish to lose your changes?",
            forms::MessageKind::YesNo) != "YES") {
      return false;
    }
  } else if (answer != "NO") {
    return false;
  }
  skin_.LoadSkin(targets_.Space.Settings.SkinName);
  return true;
}

void frmSkinChooser::CloseBy(const char* word) {
  closingWord_ = word;
  if (QueryUnload()) services_.Host.Unload(*this);
}

}  // namespace tarnwell::settings
