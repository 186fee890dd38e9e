// Menus of the system over the main window. They hold what the shell puts into them beside entries
// of the program.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/OwnerWindow.h"
#include "platform/PopupMenu.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

class WindowsPopupMenus : public PopupMenus {
 public:
  WindowsPopupMenus(OwnerWindow owner, MenuLook look)
      : owner_(std::move(owner)), look_(std::move(look)) {}

  std::unique_ptr<PopupMenu> Create() override;
  void CloseThen(std::function<void()> then) override;

 private:
  friend class WindowsPopupMenu;
  int Track(HMENU menu, int x, int y);

  const OwnerWindow owner_;
  const MenuLook look_;
  bool isUp_ = false;
  std::function<void()> then_;
};

class WindowsPopupMenu : public PopupMenu {
 public:
  // Takes the menu, which is an empty one.
  WindowsPopupMenu(WindowsPopupMenus& menus, HMENU menu) : menus_(menus), menu_(menu) {}
  ~WindowsPopupMenu() override;
  WindowsPopupMenu(const WindowsPopupMenu&) = delete;
  WindowsPopupMenu& operator=(const WindowsPopupMenu&) = delete;

  bool InsertOnTop(const ContextEntry& entry) override;
  void Remove(int id) override;
  std::uintptr_t Handle() const override { return reinterpret_cast<std::uintptr_t>(menu_); }
  int Track(int x, int y) override { return menus_.Track(menu_, x, y); }

 private:
  bool Insert(HMENU menu, UINT place, const ContextEntry& entry, const std::string& keys);
  // Null where there is none.
  HBITMAP PictureOf(const ContextEntry& entry);

  WindowsPopupMenus& menus_;
  const HMENU menu_;
  std::vector<HBITMAP> pictures_;  // the menu shows them, and leaves them to who made them
};

}  // namespace tarnwell::platform
