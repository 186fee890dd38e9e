// Port: a file that lines are added to.
#pragma once

#include <string_view>

namespace tarnwell::platform {

class LogFile {
 public:
  virtual ~LogFile() = default;
  // Adds the line, given without its end. A line that cannot be written is dropped.
  virtual void Append(std::string_view line) = 0;
};

}  // namespace tarnwell::platform
