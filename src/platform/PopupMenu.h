// Port: a menu that pops up over the main window.
#pragma once

#include <memory>

#include "platform/ContextMenu.h"

namespace tarnwell::platform {

class PopupMenu {
 public:
  virtual ~PopupMenu() = default;
  // Adds the entry, with its submenu, above all others. False if it cannot be added.
  virtual bool InsertOnTop(const ContextEntry& entry) = 0;
  // Shows the menu and returns when it is closed: the number of the entry chosen, 0 for none. The
  // place is in pixels of the main window's client area.
  virtual int Track(int x, int y) = 0;
};

class PopupMenus {
 public:
  virtual ~PopupMenus() = default;
  // An empty menu; null if there can be none.
  virtual std::unique_ptr<PopupMenu> Create() = 0;
};

}  // namespace tarnwell::platform
