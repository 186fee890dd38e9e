#include "platform/win32/menu/WindowsContextMenu.h"

#include <utility>

#include "base/PathSyntax.h"
#include "platform/win32/menu/OpenShellMenu.h"
#include "platform/win32/menu/WindowsItemMenu.h"

namespace tarnwell::platform {

base::Status WindowsContextMenu::Find(const std::string& path) const {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  ItemIds ids;
  if (path.ends_with(syntax.Separator)) return ReadItemIds(path, ids);
  const std::string folder = syntax.GetFolderPath(path);
  if (folder != folder_ || opened_ == nullptr) {
    opened_ = nullptr;
    folder_ = folder;
    if (const base::Status status = ReadItemIds(folder, ids); !status) return status;
    if (const base::Status status = OpenShellFolder(*ids, opened_); !status) return status;
  }
  return ReadItemIds(*opened_.Get(), path.substr(folder.size()), ids);
}

std::unique_ptr<ItemMenu> WindowsContextMenu::ForItems(const std::string& folder,
                                                       const std::vector<std::string>& names) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  opened_ = nullptr;
  std::vector<std::string> paths;
  for (const std::string& name : names) paths.push_back(syntax.Join(folder, name));
  if (names.empty()) {
    paths.push_back(syntax.IsDriveRoot(folder) ? folder : syntax.RemoveRightSlash(folder));
  }
  auto menu = OpenShellMenu(reinterpret_cast<HWND>(tools_.Owner()), paths);
  if (menu == nullptr) return nullptr;
  return std::make_unique<WindowsItemMenu>(tools_, std::move(menu), folder, std::move(paths));
}

}  // namespace tarnwell::platform
