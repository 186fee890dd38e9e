// A window that nobody sees, for what the system tells top-level windows alone.
#pragma once

#include <functional>
#include <optional>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

class HiddenWindow {
 public:
  // Called by the thread that made the window, out of its loop or any call that sends messages.
  // Nothing leaves a message to the system.
  using Takes = std::function<std::optional<LRESULT>(UINT message, WPARAM first, LPARAM second)>;

  // The name is that of a window class, which nothing else has.
  HiddenWindow(const wchar_t* name, Takes takes);
  HiddenWindow(const HiddenWindow&) = delete;
  HiddenWindow& operator=(const HiddenWindow&) = delete;
  ~HiddenWindow();

  HWND Get() const { return window_; }  // null where it could not be made

 private:
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM first, LPARAM second);

  const Takes takes_;
  HWND window_ = nullptr;
};

}  // namespace tarnwell::platform
