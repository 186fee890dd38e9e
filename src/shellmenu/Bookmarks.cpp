#include "shellmenu/Bookmarks.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>

#include "lister/list/ClickedItem.h"
#include "settings/LoadLastSettings.h"
#include "shellmenu/ShellMenuTables.h"

namespace tarnwell::shellmenu {

void Bookmarks::AddRemoveBookMark(int slot, std::string_view word) {
  workspace::BookmarkRecord& bookmark =
      workspace_.Settings.Bookmarks.at(static_cast<std::size_t>(slot));
  const std::string folder = word == ClearSlot ? std::string(workspace::EmptyBookmark)
                                               : GetClickedFolder(workspace_, messenger_);
  if (!folder.empty()) bookmark.Path = folder;
  settings::MakeBookmarkDisplayPaths(workspace_.Settings);
}

std::string GetClickedFolder(const workspace::Workspace& workspace, forms::Messenger& messenger) {
  try {
    std::string folder, name;
    std::int32_t kind = lister::NothingClicked;
    workspace.Lists[workspace.CurrentList].GetClickedItem(folder, name, false, kind);
    if (kind == lister::ClickedDriveRoot) return folder;
    if (kind == lister::ClickedFolder || kind == lister::ClickedEmptySpace) return folder + name;
  } catch (const std::exception&) {
    messenger.Message("An error occurred while getting the folder name that was clicked on.",
                      forms::MessageKind::Ok);
  }
  return "";
}

}  // namespace tarnwell::shellmenu
