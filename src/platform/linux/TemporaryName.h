// Names for what is not whole yet.
#pragma once

#include <sys/random.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>

namespace tarnwell::platform {

// Hidden, told by its beginning and end, and taken by nothing else as far as chance can tell.
class TemporaryName {
 public:
  // Makes up another name. Gives an error number.
  int Renew() {
    std::uint64_t number = 0;
    if (getrandom(&number, sizeof number, 0) != sizeof number) return errno;
    std::snprintf(text_.data(), text_.size(), ".tarnwell-%016jx.tmp",
                  static_cast<std::uintmax_t>(number));
    return 0;
  }
  const char* Text() const { return text_.data(); }

  // How many names to try before giving up.
  static constexpr int Attempts = 100;

 private:
  std::array<char, 40> text_{};
};

}  // namespace tarnwell::platform
