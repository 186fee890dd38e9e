// Port: the time.
#pragma once

#include <cstdint>

namespace tarnwell::platform {

// A moment in local time. Year in full, Month and Day from 1.
struct LocalTime {
  int Year = 1970;
  int Month = 1;
  int Day = 1;
  int Hour = 0;
  int Minute = 0;
  int Second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Nanoseconds since 1970-01-01 UTC.
  virtual std::int64_t Now() const = 0;
  // That moment in the user's time zone.
  virtual LocalTime ToLocal(std::int64_t nanoseconds) const = 0;
  // Milliseconds of a clock that never goes back; for measuring spans.
  virtual std::int64_t Ticks() const = 0;
};

}  // namespace tarnwell::platform
