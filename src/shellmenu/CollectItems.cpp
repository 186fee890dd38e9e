#include "shellmenu/CollectItems.h"

#include <algorithm>
#include <utility>

#include "lists/PlacePath.h"

namespace tarnwell::shellmenu {

MenuItems ItemCollector::Collect(lister::ListerControl& list, const std::string& path,
                                 const std::string& clicked, MenuMode mode) const {
  MenuItems items;
  items.AreFound = list.ShowsFound();
  if (!path.empty()) {
    items.Paths = {syntax_.ValidatePath(path)};
  } else {
    if (mode == MenuMode::Show) list.PrepareSelectionMouse();
    list.SelectionCursor = 0;
    items.Paths = ClickedAndSelected(list, clicked);
  }
  if (items.Paths == Paths{""}) items.Paths.clear();
  items.IsDriveRoot = items.Paths.size() == 1 && IsDriveRoot(items.Paths.front());
  return items;
}

ItemCollector::Paths ItemCollector::ClickedAndSelected(lister::ListerControl& list,
                                                       const std::string& clicked) const {
  Paths paths;
  if (lists::IsPlace(clicked)) {
    paths = {syntax_.ValidatePath(clicked)};
    if (paths.front().empty()) return {};
  } else if (!clicked.empty()) {
    if (IsDriveRoot(clicked)) return {clicked};
    paths = {syntax_.RemoveRightSlash(clicked)};
  }
  if (AddSelected(list, paths)) return paths;
  messenger_.Message(
      "Unless you have 30000 files or objects in this folder, an error has occurred.\r\n\r\n(If "
      "you really do have 30000 objects, then call us an we'll fix it for you.)",
      forms::MessageKind::Ok);
  return {};
}

bool ItemCollector::AddSelected(lister::ListerControl& list, Paths& paths) {
  while (paths.size() < MostItems) {
    std::string item = list.NextSelected();
    if (item == "end") return true;
    if (!item.empty() && (paths.empty() || item != paths.front())) paths.push_back(std::move(item));
  }
  return false;
}

// The text tells no root that is a mount point, and no folder that the platform offers as a drive.
bool ItemCollector::IsDriveRoot(const std::string& path) const {
  if (syntax_.IsDriveRoot(path)) return true;
  if (!syntax_.RootMark.empty()) return false;
  return std::ranges::any_of(drives_.List(), [&](const platform::Drive& drive) {
    return syntax_.Same(path, syntax_.DriveRoot(drive.Name));
  });
}

}  // namespace tarnwell::shellmenu
