// The event loop, as far as tests need it.
#pragma once

#include "Test.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// Runs the event loop until the condition holds; false when the time is up first.
inline bool RunUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    } else {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
    }
  }
  return true;
}

}  // namespace tarnwell::platform
