// Objects of the system's component model.
#pragma once

#include "platform/win32/api/Windows.h"
// Behind the system's own, which they need.
#include <ole2.h>
#include <wrl/client.h>

namespace tarnwell::platform {

using Microsoft::WRL::ComPtr;

// While this lives, the thread that made it may use the shell, with its clipboard. Has to go before
// that thread ends; may be nested. Every such thread is a single-threaded apartment: while it waits
// for what others call it for, it has to run a loop of messages.
class ComThread {
 public:
  ComThread() : isEntered_(SUCCEEDED(OleInitialize(nullptr))) {}
  ~ComThread() {
    if (isEntered_) OleUninitialize();
  }
  ComThread(const ComThread&) = delete;
  ComThread& operator=(const ComThread&) = delete;

 private:
  const bool isEntered_;
};

}  // namespace tarnwell::platform
