// The event loop, as far as tests need it.
#pragma once

#include "Test.h"

// The adapter keeps GLib to itself; the event loop is all that a test needs of it.
extern "C" int g_main_context_iteration(struct _GMainContext* context, int mayBlock);

namespace tarnwell::platform {

// Runs the event loop until the condition holds; false when the time is up first.
inline bool RunUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    if (g_main_context_iteration(nullptr, 0) == 0)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace tarnwell::platform
