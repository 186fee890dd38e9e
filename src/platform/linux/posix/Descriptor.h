// An open file descriptor that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace tarnwell::platform {

class Descriptor {
 public:
  Descriptor() = default;
  // Takes what an open call gave; -1 stands for none.
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(other.Release()) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }

  explicit operator bool() const { return number_ >= 0; }
  int Get() const { return number_; }
  int Release() { return std::exchange(number_, -1); }

 private:
  int number_ = -1;
};

}  // namespace tarnwell::platform
