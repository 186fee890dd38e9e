// Ends the program cleanly when the system asks it to.
#pragma once

#include <functional>

#include "platform/win32/system/HiddenWindow.h"

namespace tarnwell::platform {

// While it lives, the end of the session, and a request to close that goes to all windows of the
// process, call `quit`, which begins the end. To be used by the thread with the loop of messages.
// The session is held up, with a reason that the system shows to the user, and messages are let
// through, until `save` has saved all, which gives false as long as that would be too early.
class WindowsTermination {
 public:
  WindowsTermination(std::function<void()> quit, std::function<bool()> save);

 private:
  void EndWithSession();

  const std::function<void()> quit_;
  const std::function<bool()> save_;
  HiddenWindow window_;
};

}  // namespace tarnwell::platform
