#include "tools/CommandLine.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "lister/list/ClickedItem.h"
#include "shellmenu/Bookmarks.h"

namespace tarnwell::tools {
namespace {

// Lines that are pasted often end in a break.
std::string_view TrimmedCommand(std::string_view text) {
  const std::size_t end = text.find_last_not_of(" \r\n");
  return base::Trim(text.substr(0, end == std::string_view::npos ? 0 : end + 1));
}

}  // namespace

void CommandLine::Enter(bool shift) {
  const std::string text(TrimmedCommand(space_.Form.cboCommand.Text));
  const std::size_t blank = std::min(text.find(' '), text.size());
  std::string folder = space_.Form.txtCurrentPath.Text;
  if (const std::size_t network = syntax_.FindNetworkStart(folder); network != folder.npos) {
    folder.erase(0, network);
  }
  // First, since a folder that opens in the pane empties the box.
  space_.Form.cboCommand.Text = text;
  space_.Form.Touch();
  launcher_.Execute({.File = text.substr(0, blank),
                     .Parameters = std::string(TrimmedCommand(text.substr(blank))),
                     .Folder = folder,
                     .KeepsTerminal = shift});
}

void CommandLine::OpenCommandLine() {
  try {
    std::string folder = shellmenu::GetClickedFolder(space_, messenger_);
    const lister::ListerControl& list = space_.Lists[space_.CurrentList];
    if (folder.empty() && list.ShowsFound()) {
      std::string name;
      std::int32_t kind = lister::NothingClicked;
      list.GetClickedItem(folder, name, false, kind);  // a file: the folder that it is in
    }
    if (folder.empty()) folder = list.CurrentFolder();
    Tell(launcher_.OpenTerminal(folder));
  } catch (const std::exception&) {
    Tell({-1, ""});
  }
}

void CommandLine::CompactDatabase(const std::string& path) {
  try {
    Tell(launcher_.Execute({.File = path + " /compact",
                            .Parameters = "",
                            .Folder = shellmenu::GetClickedFolder(space_, messenger_)}));
  } catch (const std::exception&) {
    Tell({-1, ""});
  }
}

void CommandLine::Tell(const base::Status& status) {
  if (status) return;
  std::string text = "An error occurred while attempting to open the command line window.";
  if (!status.Reason.empty()) text += "\r\n\r\n" + status.Reason + ".";
  messenger_.Message(text, forms::MessageKind::Ok);
}

}  // namespace tarnwell::tools
