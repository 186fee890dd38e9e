#include "platform/win32/system/HiddenWindow.h"

#include <cstdio>
#include <exception>
#include <utility>

namespace tarnwell::platform {

HiddenWindow::HiddenWindow(const wchar_t* name, Takes takes) : takes_(std::move(takes)) {
  WNDCLASSW made{};
  made.lpfnWndProc = Handle;
  made.hInstance = GetModuleHandleW(nullptr);
  made.lpszClassName = name;
  RegisterClassW(&made);  // another one before this may have done so
  window_ = CreateWindowExW(WS_EX_TOOLWINDOW, name, L"Tarnwell", WS_POPUP, 0, 0, 0, 0, nullptr,
                            nullptr, made.hInstance, nullptr);
  if (window_ != nullptr) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
}

HiddenWindow::~HiddenWindow() {
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

LRESULT CALLBACK HiddenWindow::Handle(HWND window, UINT message, WPARAM first, LPARAM second) {
  const auto* const self =
      reinterpret_cast<const HiddenWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  std::optional<LRESULT> answer;
  try {
    if (self != nullptr) answer = self->takes_(message, first, second);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarnwell: %s\n", error.what());
  }
  if (answer) return *answer;
  // What closes all windows of the process asks for its end, and until then this one serves.
  return message == WM_CLOSE ? 0 : DefWindowProcW(window, message, first, second);
}

}  // namespace tarnwell::platform
