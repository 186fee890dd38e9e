// The time by POSIX calls.
#pragma once

#include "platform/Clock.h"

namespace tarnwell::platform {

class LinuxClock : public Clock {
 public:
  std::int64_t Now() const override;
  LocalTime ToLocal(std::int64_t nanoseconds) const override;
  std::int64_t Ticks() const override;
};

}  // namespace tarnwell::platform
