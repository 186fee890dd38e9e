#include "platform/win32/menu/OpenShellMenu.h"

#include <algorithm>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/win32/shell/ItemIds.h"

namespace tarnwell::platform {
namespace {

using IdList = std::vector<ItemIds>;

std::vector<const ITEMIDLIST*> PointersOf(const IdList& ids) {
  std::vector<const ITEMIDLIST*> pointers;
  pointers.reserve(ids.size());
  for (const ItemIds& each : ids) pointers.push_back(each.get());
  return pointers;
}

ComPtr<IContextMenu> MenuIn(IShellFolder& folder, HWND owner, const IdList& children) {
  std::vector<const ITEMIDLIST*> pointers = PointersOf(children);
  ComPtr<IContextMenu> menu;
  folder.GetUIObjectOf(owner, static_cast<UINT>(pointers.size()), pointers.data(),
                       __uuidof(IContextMenu), nullptr,
                       reinterpret_cast<void**>(menu.GetAddressOf()));
  return menu;
}

// Of a drive's root, too, which stands in the folder of all drives.
ComPtr<IContextMenu> MenuOfOne(HWND owner, const std::string& path) {
  ItemIds ids;
  IdList children(1);
  ComPtr<IShellFolder> folder;
  if (!ReadItemIds(path, ids) || !OpenParent(*ids, folder, children[0])) return nullptr;
  return MenuIn(*folder.Get(), owner, children);
}

ComPtr<IContextMenu> MenuOfFolder(HWND owner, const std::string& folder,
                                  const std::vector<std::string>& paths) {
  ItemIds ids;
  ComPtr<IShellFolder> opened;
  if (!ReadItemIds(folder, ids) || !OpenShellFolder(*ids, opened)) return nullptr;
  IdList children;
  for (const std::string& path : paths) {
    ItemIds child;
    if (ReadItemIds(*opened.Get(), path, child)) children.push_back(std::move(child));
  }
  return children.empty() ? nullptr : MenuIn(*opened.Get(), owner, children);
}

// No one folder could tell such items from others: the desktop's takes their drives for them.
ComPtr<IContextMenu> MenuOfMany(const std::vector<std::string>& paths) {
  IdList all;
  for (const std::string& path : paths) {
    ItemIds ids;
    if (ReadItemIds(path, ids)) all.push_back(std::move(ids));
  }
  if (all.empty()) return nullptr;
  std::vector<const ITEMIDLIST*> pointers = PointersOf(all);
  ComPtr<IShellItemArray> items;
  ComPtr<IContextMenu> menu;
  SHCreateShellItemArrayFromIDLists(static_cast<UINT>(pointers.size()), pointers.data(), &items);
  if (items != nullptr) items->BindToHandler(nullptr, BHID_SFUIObject, IID_PPV_ARGS(&menu));
  return menu;
}

}  // namespace

ComPtr<IContextMenu> OpenShellMenu(HWND owner, const std::vector<std::string>& paths) {
  if (paths.size() == 1) return MenuOfOne(owner, paths.front());
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  const std::string folder = syntax.GetFolderPath(paths.front());
  const bool isOneFolder = std::ranges::all_of(
      paths, [&](const std::string& path) { return syntax.GetFolderPath(path) == folder; });
  return isOneFolder ? MenuOfFolder(owner, folder, paths) : MenuOfMany(paths);
}

}  // namespace tarnwell::platform
