#include "platform/linux/menu/LinuxContextMenu.h"

#include "platform/linux/files/FindItem.h"
#include "platform/linux/menu/LinuxItemMenu.h"

namespace tarnwell::platform {

base::Status LinuxContextMenu::Find(const std::string& path) const {
  return FindItem(path);
}

std::unique_ptr<ItemMenu> LinuxContextMenu::ForItems(const std::string& folder,
                                                     const std::vector<std::string>& names) {
  if (folder.empty()) return nullptr;
  return std::make_unique<LinuxItemMenu>(tools_, folder, names);
}

}  // namespace tarnwell::platform
