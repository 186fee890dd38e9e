// The raw items of a folder, a bufferful at a time.
#pragma once

#include <dirent.h>

#include <cerrno>
#include <cstddef>
#include <memory>

#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// Takes larger helpings than the C library does, and copies nothing. May serve several folders one
// after the other.
class FolderBuffer {
 public:
  // Hands every item of the open folder but "." and ".." to `take`, until that gives false.
  // `goesOn` is asked after each helping, and ends the reading as well.
  template <typename Take, typename GoesOn>
  ErrorNumber Read(int folder, Take take, GoesOn goesOn) {
    for (;;) {
      if (const ErrorNumber error = Fill(folder); error != NoError) return error;
      if (IsEmpty()) return NoError;
      while (const dirent64* const item = Next()) {
        if (!take(*item)) return NoError;
      }
      if (!goesOn()) return NoError;
    }
  }
  template <typename Take>
  ErrorNumber Read(int folder, Take take) {
    return Read(folder, take, [] { return true; });
  }
  // The same, but goes on where the last call was ended by `take`: behind that item.
  template <typename Take>
  ErrorNumber ReadOn(int folder, Take take) {
    while (const dirent64* const item = Next()) {
      if (!take(*item)) return NoError;
    }
    return Read(folder, take);
  }

 private:
  // Gets the next helping of items; none at the end.
  ErrorNumber Fill(int folder) {
    const ssize_t got = getdents64(folder, bytes_.get(), size);
    at_ = 0;
    end_ = got > 0 ? static_cast<std::size_t>(got) : 0;
    return got < 0 ? errno : 0;
  }
  bool IsEmpty() const { return end_ == 0; }
  // The next item of the helping; null at its end.
  const dirent64* Next() {
    while (at_ < end_) {
      const auto* const item = reinterpret_cast<const dirent64*>(bytes_.get() + at_);
      at_ += item->d_reclen;
      if (!IsOwnOrParent(item->d_name)) return item;
    }
    return nullptr;
  }

  static constexpr std::size_t size = 65536;

  static bool IsOwnOrParent(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
  }

  std::unique_ptr<char[]> bytes_ = std::make_unique_for_overwrite<char[]>(size);
  std::size_t at_ = 0;
  std::size_t end_ = 0;
};

}  // namespace tarnwell::platform
