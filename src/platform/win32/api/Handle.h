// An open handle that closes itself.
#pragma once

#include <utility>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

template <BOOL(WINAPI* Close)(HANDLE)>
class ClosingHandle {
 public:
  ClosingHandle() = default;
  // Takes what a call gave; null and INVALID_HANDLE_VALUE stand for none.
  explicit ClosingHandle(HANDLE handle)
      : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  ClosingHandle(ClosingHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  ClosingHandle& operator=(ClosingHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~ClosingHandle() {
    if (handle_ != nullptr) Close(handle_);
  }

  explicit operator bool() const { return handle_ != nullptr; }
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_ = nullptr;
};

using Handle = ClosingHandle<CloseHandle>;
using FindHandle = ClosingHandle<FindClose>;  // of FindFirstFileExW

}  // namespace tarnwell::platform
