// A call that the event loop makes over and over.
#pragma once

#include <chrono>
#include <functional>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// While it lives, on the thread that it is made by, which has a loop of messages. May be destroyed
// within its own call, and in no other thread.
class LoopTimer {
 public:
  LoopTimer(std::chrono::milliseconds step, std::function<void()> call);
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;
  ~LoopTimer();

 private:
  static void CALLBACK Call(HWND window, UINT message, UINT_PTR number, DWORD time);

  const std::function<void()> call_;
  const UINT_PTR number_;
};

}  // namespace tarnwell::platform
