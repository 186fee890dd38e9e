// The raw items of a folder, a bufferful at a time.
#pragma once

#include <dirent.h>

#include <cerrno>
#include <cstddef>
#include <memory>

namespace tarnwell::platform {

// Takes larger helpings than the C library does, and copies nothing. May serve several folders one
// after the other.
class FolderBuffer {
 public:
  // Gets the next helping of items from the open folder. Gives an error number; 0 at the end too.
  int Fill(int folder) {
    const ssize_t got = getdents64(folder, bytes_.get(), size);
    at_ = 0;
    end_ = got > 0 ? static_cast<std::size_t>(got) : 0;
    return got < 0 ? errno : 0;
  }
  // The next item of the helping, neither "." nor ".."; null at its end.
  const dirent64* Next() {
    while (at_ < end_) {
      const auto* const item = reinterpret_cast<const dirent64*>(bytes_.get() + at_);
      at_ += item->d_reclen;
      if (!IsOwnOrParent(item->d_name)) return item;
    }
    return nullptr;
  }
  bool IsEmpty() const { return end_ == 0; }

 private:
  static constexpr std::size_t size = 65536;

  static bool IsOwnOrParent(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
  }

  std::unique_ptr<char[]> bytes_ = std::make_unique_for_overwrite<char[]>(size);
  std::size_t at_ = 0;
  std::size_t end_ = 0;
};

}  // namespace tarnwell::platform
