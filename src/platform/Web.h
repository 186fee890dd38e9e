// Port: reading text from the web.
#pragma once

#include <cstddef>
#include <string>

namespace tarnwell::platform {

class Web {
 public:
  virtual ~Web() = default;
  // The body of the address as bytes, at most the first `most` of them; empty on any failure, and
  // after a time limit of some seconds. Lets messages through until then. Called again meanwhile it
  // gives nothing at once.
  virtual std::string OpenUrl(const std::string& address, std::size_t most) = 0;
  // Ends a call that runs; it gives nothing. Without one does nothing.
  virtual void GiveUp() = 0;
};

}  // namespace tarnwell::platform
