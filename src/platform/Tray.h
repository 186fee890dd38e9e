// Port: the program's icon in the notification area.
#pragma once

#include <functional>
#include <string>

namespace tarnwell::platform {

class Tray {
 public:
  virtual ~Tray() = default;
  struct Events {
    std::function<void()> Restore;    // a click or double click with the main button
    std::function<void()> PopUpMenu;  // a click with the other button
  };
  // Puts the program's icon into the notification area. False where there is none.
  virtual bool Add(const std::string& tip, Events events) = 0;
  virtual void Remove() = 0;
};

}  // namespace tarnwell::platform
