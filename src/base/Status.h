// The outcome of a call to the platform.
#pragma once

#include <string>

namespace tarnwell::base {

struct Status {
  int Code = 0;        // the system's own error number; 0 is success
  std::string Reason;  // the system's description, for people; empty on success

  explicit operator bool() const { return Code == 0; }
};

}  // namespace tarnwell::base
