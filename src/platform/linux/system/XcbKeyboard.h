// The keyboard of an X11 display.
#pragma once

#include "platform/Keyboard.h"

struct xcb_connection_t;

namespace tarnwell::platform {

class XcbKeyboard : public Keyboard {
 public:
  // Null on other displays (Wayland tells no program which keys are down).
  explicit XcbKeyboard(xcb_connection_t* display) : display_(display) {}

  HeldKeys Held() const override;

 private:
  xcb_connection_t* const display_;
};

}  // namespace tarnwell::platform
