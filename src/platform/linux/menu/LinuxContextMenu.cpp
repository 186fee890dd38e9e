#include "platform/linux/menu/LinuxContextMenu.h"

#include "platform/linux/files/FindItem.h"
#include "platform/linux/menu/LinuxItemMenu.h"

namespace tarnwell::platform {

base::Status LinuxContextMenu::Find(const std::string& path) const {
  return tools_.Calls.Ask(
      path, [path] { return FindItem(path); }, LastLink::Itself);
}

std::unique_ptr<ItemMenu> LinuxContextMenu::ForItems(const std::string& folder,
                                                     const std::vector<std::string>& names) {
  if (folder.empty()) return nullptr;
  return std::make_unique<LinuxItemMenu>(tools_, folder, names);
}

}  // namespace tarnwell::platform
