#include "tools/frmTip.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "lister/list/ListInput.h"

namespace tarnwell::tools {
namespace {

// Where the desktop keeps the switch: 0 or 1.
constexpr char SwitchSection[] = "Options";
constexpr char SwitchName[] = "Show Tips at Startup";

// A file beyond this is no file of tips, and is not read into memory.
constexpr std::uint64_t MostTipBytes = 64 << 20;

// Of one line; what lies beyond is nothing that anybody reads in a small window.
constexpr std::size_t MostShown = 5000;  // code points

base::Status ReadTips(const platform::FileSystem& files, const std::string& path,
                      std::string& text) {
  platform::ItemAttributes attributes;
  if (base::Status status = files.ReadAttributes(path, "", attributes); !status) return status;
  if (attributes.Size > MostTipBytes) return {EFBIG, "It has more than 64 MiB"};
  return files.ReadFile(path, text);
}

std::string NotFoundText() {
  const std::string name = TipsName;
  return "That the " + name + " file was not found? \r\n\r\nCreate a text file named " + name +
         " using NotePad with 1 tip per line. Then place it in the same directory as the "
         "application. ";
}

}  // namespace

frmTip::frmTip(TipServices services, const std::string& programFolder)
    : Form("frmTip"),
      services_(std::move(services)),
      path_(services_.Files.Syntax().Join(programFolder, TipsName)) {}

bool frmTip::IsOnAtStartup() const {
  return services_.Settings.ReadNumber(SwitchSection, SwitchName, 1) != 0;
}

void frmTip::ShowOver(forms::Form& owner) {
  if (!ForceShow && !IsOnAtStartup()) return;
  services_.Host.Open(*this);
  CentreOn(owner);
  services_.Host.Show(*this, &owner);
}

void frmTip::Load() {
  Caption = "Tip of the Day";
  Label1.Caption = "Did you know...";
  lblTipText.Text = "There are no tips in " + std::string(TipsName) + ".";
  chkLoadTipsAtStartup.Caption = "&Show Tips at Startup";
  cmdNextTip.Caption = "&Next Tip";
  cmdNextTip.ToolTip = "Shows the next tip.";
  cmdOK.Caption = "&OK";
  cmdOK.ToolTip = "Closes the 'Tip of the Day'.";
  cmdOK.Default = true;

  chkLoadTipsAtStartup.Checked = IsOnAtStartup();
  random_.seed(static_cast<std::uint64_t>(services_.Clock.Now()));
  if (LoadTips(path_)) return;
  lblTipText.Text = NotFoundText();
  if (!services_.Files.Exists(path_)) return;
  lblTipText.Text += "\r\n" + base::ForDisplay(path_) + ": " + unread_ + ".";
}

void frmTip::Unload() {
  ForceShow = false;
  tips_ = TipLines();
}

bool frmTip::LoadTips(const std::string& path) {
  if (path.empty()) return false;
  std::string text;
  const base::Status status = ReadTips(services_.Files, path, text);
  unread_ = status.Reason;
  if (!status) return false;
  tips_ = TipLines(std::move(text));
  std::uniform_int_distribution<int> lot(1, std::max(tips_.Count(), 1));
  currentTip_ = services_.Markers.FirstTips ? 0 : lot(random_);
  NextTip();
  return true;
}

void frmTip::NextTip() {
  ++currentTip_;
  if (currentTip_ > tips_.Count()) currentTip_ = 1;
  DisplayCurrentTip();
}

void frmTip::DisplayCurrentTip() {
  if (tips_.Count() == 0) return;
  const std::string_view tip = tips_.At(currentTip_);
  lblTipText.Text = base::FirstCodePoints(tip, MostShown);
  if (lblTipText.Text.size() < tip.size()) lblTipText.Text += "...";
  Touch();
}

void frmTip::UserKeyDown(int keyCode, int) {
  if (keyCode == lister::F1Key) services_.OpenHelp();
}

void frmTip::chkLoadTipsAtStartupClick(bool on) {
  const base::Status status = services_.Settings.WriteNumber(SwitchSection, SwitchName, on ? 1 : 0);
  chkLoadTipsAtStartup.Checked = status ? on : IsOnAtStartup();
  Touch();
  if (status) return;
  services_.Messages.Message("The setting could not be saved.\r\n\r\n" + status.Reason + ".",
                             forms::MessageKind::Ok, Name());
}

}  // namespace tarnwell::tools
