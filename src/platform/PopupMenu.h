// Port: a menu that pops up over the main window.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/ContextMenu.h"

namespace tarnwell::platform {

class PopupMenu {
 public:
  virtual ~PopupMenu() = default;
  // Adds the entry, with its submenu, above all others. False if it cannot be added.
  virtual bool InsertOnTop(const ContextEntry& entry) = 0;
  // Takes away the entry with the number that stands at the top level.
  virtual void Remove(int id) = 0;
  // The menu as the system knows it, an HMENU on Windows; 0 where the system knows none.
  virtual std::uintptr_t Handle() const = 0;
  // Shows the menu and returns when it is closed: the number of the entry chosen, 0 for none. The
  // place is in pixels of the main window's client area.
  virtual int Track(int x, int y) = 0;
};

class PopupMenus {
 public:
  virtual ~PopupMenus() = default;
  // An empty menu; null if there can be none.
  virtual std::unique_ptr<PopupMenu> Create() = 0;
  // Closes the menu that is up, and calls `then` from the event loop once Track has returned; at
  // once while none is up.
  virtual void CloseThen(std::function<void()> then) = 0;
};

// A row of pixels follows the one above it. Each is 0xAARRGGBB, with the colours multiplied by the
// opacity.
struct MenuPicture {
  int Width = 0, Height = 0;  // 0 where there is no picture
  std::vector<std::uint32_t> Pixels;
};

// What menus of the system take from the program's windows.
struct MenuLook {
  // From a place as PopupMenu::Track takes it to pixels of the screen, counted from the corner of
  // all that the main window has within its frame.
  std::function<std::pair<int, int>(int x, int y)> PlaceInWindow;
  // As ContextEntry names it; as high and wide as that many pixels of the screen, at most.
  std::function<MenuPicture(const std::string& name, int size)> Picture;
  // Those that do what an entry of that caption does; empty for none.
  std::function<std::string(const std::string& caption)> Keys;
};

}  // namespace tarnwell::platform
