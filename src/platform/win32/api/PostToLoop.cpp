#include "platform/win32/api/PostToLoop.h"

#include <deque>
#include <mutex>
#include <utility>

#include "platform/GuardedCall.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {
namespace {

constexpr UINT CallsWait = WM_APP + 1;

// Messages to a thread are lost in loops of the system's own; those to a window are not.
class LoopWindow {
 public:
  LoopWindow() {
    WNDCLASSW made{};
    made.lpfnWndProc = Handle;
    made.hInstance = GetModuleHandleW(nullptr);
    made.lpszClassName = L"TarnwellLoop";
    RegisterClassW(&made);
    window_ = CreateWindowExW(0, made.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              made.hInstance, nullptr);
  }

  void Post(std::function<void()> call) {
    const std::lock_guard<std::mutex> lock(mutex_);
    calls_.push_back(std::move(call));
    Wake();
  }

 private:
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM first, LPARAM second);

  // One call for each message: it may run a loop of its own, in which the rest has its turn.
  void MakeNext() {
    std::function<void()> call;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      isWoken_ = false;
      if (calls_.empty()) return;  // a message from elsewhere
      call = std::move(calls_.front());
      calls_.pop_front();
      if (!calls_.empty()) Wake();
    }
    GuardedCall(call);
  }

  // One message at a time. A queue that has no room for it now has some at the next call.
  void Wake() { isWoken_ = isWoken_ || PostMessageW(window_, CallsWait, 0, 0) != 0; }

  HWND window_ = nullptr;
  std::mutex mutex_;
  std::deque<std::function<void()>> calls_;
  bool isWoken_ = false;
};

// Made before main, by the thread that the process begins with; never unmade, since threads that
// are left behind may still post.
LoopWindow& loopWindow = *new LoopWindow;

LRESULT CALLBACK LoopWindow::Handle(HWND handle, UINT message, WPARAM first, LPARAM second) {
  if (message != CallsWait) return DefWindowProcW(handle, message, first, second);
  loopWindow.MakeNext();
  return 0;
}

}  // namespace

void PostToLoop(std::function<void()> call) {
  loopWindow.Post(std::move(call));
}

}  // namespace tarnwell::platform
