// Lets messages through during long work, often enough that the window stays alive.
#pragma once

#include <cstdint>

#include "platform/Clock.h"
#include "platform/MessagePump.h"

namespace tarnwell::lister {

class Pacer {
 public:
  Pacer(const platform::Clock& clock, platform::MessagePump& pump)
      : clock_(clock), pump_(pump), last_(clock.Ticks()) {}

  bool IsDue() const { return clock_.Ticks() - last_ >= Interval; }
  // What happens here may call the code that does the work: look around afterwards.
  void Pump() {
    pump_.DoEvents();
    last_ = clock_.Ticks();
  }

 private:
  static constexpr std::int64_t Interval = 50;  // milliseconds
  const platform::Clock& clock_;
  platform::MessagePump& pump_;
  std::int64_t last_;
};

}  // namespace tarnwell::lister
