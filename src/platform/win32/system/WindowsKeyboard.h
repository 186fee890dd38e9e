// The keyboard as it is at this moment.
#pragma once

#include "platform/Keyboard.h"

namespace tarnwell::platform {

class WindowsKeyboard : public Keyboard {
 public:
  HeldKeys Held() const override;
};

}  // namespace tarnwell::platform
