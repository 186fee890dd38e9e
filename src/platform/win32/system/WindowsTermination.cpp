#include "platform/win32/system/WindowsTermination.h"

#include <optional>
#include <utility>

namespace tarnwell::platform {
namespace {

constexpr const wchar_t* HoldingUp = L"Operations on files are coming to their end.";
constexpr DWORD LongestSleep = 50;  // milliseconds, between two questions for the end

void HandleMessages() {
  MsgWaitForMultipleObjectsEx(0, nullptr, LongestSleep, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

WindowsTermination::WindowsTermination(std::function<void()> quit, std::function<bool()> save)
    : quit_(std::move(quit)),
      save_(std::move(save)),
      window_(L"TarnwellTermination",
              [this](UINT message, WPARAM first, LPARAM) -> std::optional<LRESULT> {
                if (message == WM_QUERYENDSESSION) return TRUE;
                if (message == WM_ENDSESSION && first != FALSE) EndWithSession();
                if (message == WM_CLOSE) quit_();
                if (message == WM_ENDSESSION || message == WM_CLOSE) return 0;
                return {};
              }) {}

// The process may be ended as soon as this returns.
void WindowsTermination::EndWithSession() {
  ShutdownBlockReasonCreate(window_.Get(), HoldingUp);
  quit_();
  while (!save_()) HandleMessages();
  ShutdownBlockReasonDestroy(window_.Get());
}

}  // namespace tarnwell::platform
