// Names for what is not whole yet.
#pragma once

#include <array>

#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/TemporaryOwner.h"

namespace tarnwell::platform {

// Hidden, told by its beginning and end, and taken by nothing else as far as chance can tell. Says
// whose it is, so that what a killed run has left can be told from what is being written: see
// SweepTemporaries.
class TemporaryName {
 public:
  // Makes up another name.
  ErrorNumber Renew() { return Renew(TemporaryOwner::Ending); }
  // For a folder that holds whole items.
  ErrorNumber RenewHold() { return Renew(TemporaryOwner::HoldEnding); }
  const char* Text() const { return text_.data(); }

  // How many names to try before giving up.
  static constexpr int Attempts = 100;

 private:
  ErrorNumber Renew(const char* ending);

  std::array<char, 128> text_{};
};

}  // namespace tarnwell::platform
