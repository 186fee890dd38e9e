// What a call of the system failed with.
#pragma once

#include <cerrno>
#include <concepts>

namespace tarnwell::platform {

// A value of errno, as errno(3) lists them, or NoError. What gives one has done nothing, or not all
// that it should, unless it gives NoError.
class [[nodiscard]] ErrorNumber {
 public:
  constexpr ErrorNumber() = default;
  // From errno or one of its names; a truth value is none.
  constexpr ErrorNumber(std::same_as<int> auto number) : number_(number) {}

  // For what is shown or kept of it; 0 for NoError.
  constexpr int Value() const { return number_; }
  constexpr bool operator==(const ErrorNumber&) const = default;

 private:
  int number_ = 0;
};

inline constexpr ErrorNumber NoError;

// Of a system call that gives 0, or else -1 and has set errno.
inline ErrorNumber ErrorOf(int result) {
  return result == 0 ? NoError : errno;
}

}  // namespace tarnwell::platform
