#include "platform/win32/menu/WindowsContextMenu.h"

#include <utility>

#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/menu/OpenShellMenu.h"
#include "platform/win32/menu/WindowsItemMenu.h"

namespace tarnwell::platform {

base::Status WindowsContextMenu::Find(const std::string& path) const {
  const std::string folder = base::PathSyntax::Windows().GetFolderPath(path);
  ItemIds ids;
  if (folder != folder_ || opened_ == nullptr) {
    opened_ = nullptr;
    folder_ = folder;
    base::Status status = Reach(folder);
    if (status) status = ReadItemIds(folder, ids);
    if (status) status = OpenShellFolder(*ids, opened_);
    if (!status) return status;
  }
  return folder == path ? base::Status() : ReadItemIds(*opened_.Get(), path, ids);
}

// The shell waits for another machine on this thread, without an end that anybody could ask for.
base::Status WindowsContextMenu::Reach(const std::string& folder) const {
  if (!tools_.Calls.PlaceOf(folder)) return {};
  return tools_.Calls.Ask(folder, [folder] {
    const bool isThere = GetFileAttributesW(LongPath(folder).c_str()) != INVALID_FILE_ATTRIBUTES;
    return isThere ? base::Status() : ShellError(HRESULT_FROM_WIN32(GetLastError()));
  });
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
  return std::make_unique<WindowsItemMenu>(tools_, std::move(menu), folder, std::move(paths),
                                           names.empty());
}

}  // namespace tarnwell::platform
