// Port: the program's icon in the notification area.
#pragma once

#include <functional>
#include <string>

namespace tarnwell::platform {

class Tray {
 public:
  virtual ~Tray() = default;

  struct Texts {
    std::string Tip;
    // Captions of the entries of the icon's menu; "&" marks the access key.
    std::string Restore;
    std::string Exit;
  };
  // Called from the event loop, and none after Remove.
  struct Events {
    std::function<void()> Restore;  // a click or double click with the main button, or the entry
    std::function<void()> Exit;     // the entry, once no menu is open any more
    std::function<void()> Gone;     // there is no notification area any more, and so no icon
  };
  // Puts the icon there. False where there is no notification area.
  virtual bool Add(const Texts& texts, Events events) = 0;
  // Does nothing without an icon.
  virtual void Remove() = 0;
};

}  // namespace tarnwell::platform
