// Port: reading text from the web.
#pragma once

#include <string>

namespace tarnwell::platform {

class Web {
 public:
  virtual ~Web() = default;
  // The whole body of the address as bytes; empty on any failure. Blocks, with a time limit of its
  // own of some seconds.
  virtual std::string OpenUrl(const std::string& address) = 0;
};

}  // namespace tarnwell::platform
