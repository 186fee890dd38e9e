#include "platform/win32/menu/WindowsPopupMenus.h"

#include <cstring>
#include <utility>

#include "base/Text.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

HBITMAP MakeBitmap(const MenuPicture& picture) {
  if (picture.Width <= 0 || picture.Height <= 0) return nullptr;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = picture.Width;
  info.bmiHeader.biHeight = -picture.Height;  // from the top down
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* pixels = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  if (bitmap == nullptr) return nullptr;
  std::memcpy(pixels, picture.Pixels.data(), picture.Pixels.size() * sizeof picture.Pixels[0]);
  return bitmap;
}

UINT StateOf(const ContextEntry& entry) {
  return (entry.Enabled ? MFS_ENABLED : MFS_DISABLED) |
         (entry.IsChecked ? MFS_CHECKED : MFS_UNCHECKED) | (entry.IsDefault ? MFS_DEFAULT : 0U);
}

}  // namespace

std::unique_ptr<PopupMenu> WindowsPopupMenus::Create() {
  const HMENU menu = owner_() != 0 ? CreatePopupMenu() : nullptr;
  if (menu == nullptr) return nullptr;
  return std::make_unique<WindowsPopupMenu>(*this, menu);
}

int WindowsPopupMenus::Track(HMENU menu, int x, int y) {
  const auto window = reinterpret_cast<HWND>(owner_());
  if (window == nullptr || isUp_) return 0;
  const auto [left, top] = look_.PlaceInWindow(x, y);
  POINT place{left, top};
  ClientToScreen(window, &place);
  isUp_ = true;
  const int chosen =
      TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, window, nullptr);
  isUp_ = false;
  if (!then_) return chosen;
  PostToLoop(std::exchange(then_, nullptr));
  return 0;
}

void WindowsPopupMenus::CloseThen(std::function<void()> then) {
  if (!isUp_) {
    then();
    return;
  }
  then_ = std::move(then);
  EndMenu();
}

WindowsPopupMenu::~WindowsPopupMenu() {
  DestroyMenu(menu_);
  for (const HBITMAP picture : pictures_) DeleteObject(picture);
}

bool WindowsPopupMenu::InsertOnTop(const ContextEntry& entry) {
  return Insert(menu_, 0, entry, menus_.look_.Keys(entry.Caption));
}

void WindowsPopupMenu::Remove(int id) {
  for (int place = GetMenuItemCount(menu_); place-- > 0;) {
    if (GetMenuItemID(menu_, place) != static_cast<UINT>(id)) continue;
    RemoveMenu(menu_, static_cast<UINT>(place), MF_BYPOSITION);
    return;
  }
}

bool WindowsPopupMenu::Insert(HMENU menu, UINT place, const ContextEntry& entry,
                              const std::string& keys) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE;
  info.wID = static_cast<UINT>(entry.Id);
  info.fType = entry.IsSeparator ? MFT_SEPARATOR : MFT_STRING;
  info.fState = StateOf(entry);
  std::wstring caption = Wide(base::ForDisplay(entry.Caption));
  if (!keys.empty()) caption += L'\t' + Wide(keys);
  if (!entry.IsSeparator) {
    info.fMask |= MIIM_STRING | MIIM_BITMAP;
    info.dwTypeData = caption.data();
    info.hbmpItem = PictureOf(entry);
  }
  if (!entry.Children.empty()) {
    info.fMask |= MIIM_SUBMENU;
    info.hSubMenu = CreatePopupMenu();
    bool isWhole = info.hSubMenu != nullptr;
    for (UINT at = 0; isWhole && at < entry.Children.size(); ++at) {
      isWhole = Insert(info.hSubMenu, at, entry.Children[at], "");
    }
    if (!isWhole) {
      DestroyMenu(info.hSubMenu);
      return false;
    }
  }
  if (InsertMenuItemW(menu, place, TRUE, &info) != 0) return true;
  if (info.hSubMenu != nullptr) DestroyMenu(info.hSubMenu);
  return false;
}

HBITMAP WindowsPopupMenu::PictureOf(const ContextEntry& entry) {
  if (entry.Picture.empty()) return nullptr;
  const auto window = reinterpret_cast<HWND>(menus_.owner_());
  const int size = GetSystemMetricsForDpi(SM_CXSMICON, GetDpiForWindow(window));
  const HBITMAP bitmap = MakeBitmap(menus_.look_.Picture(entry.Picture, size));
  if (bitmap != nullptr) pictures_.push_back(bitmap);
  return bitmap;
}

}  // namespace tarnwell::platform
