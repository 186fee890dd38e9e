// Lets messages through during long work, often enough that the window stays alive.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "platform/Clock.h"
#include "platform/MessagePump.h"

namespace tarnwell::lister {

// Work that a folder which goes on changing asks for anew waits as long as it took the last time,
// but never longer than this; milliseconds.
inline constexpr std::int64_t MostRest = 60'000;

// What the status line says while an answer of the place is waited for.
inline std::string WaitText(const std::string& place) {
  return "Waiting for " + place + "; Escape stops";
}

class Pacer {
 public:
  Pacer(const platform::Clock& clock, platform::MessagePump& pump)
      : clock_(clock), pump_(pump), last_(clock.Ticks()), looked_(last_) {}

  // To be asked after each piece of work. The clock is looked at once in many calls where these
  // follow each other quickly.
  bool IsDue() {
    if (--calls_ > 0) return false;
    const std::int64_t now = clock_.Ticks();
    stride_ = now == looked_ ? std::min(stride_ * 2, MostCalls) : 1;
    calls_ = stride_;
    looked_ = now;
    return now - last_ >= Interval;
  }
  // What happens here may call the code that does the work: look around afterwards.
  void Pump() {
    pump_.DoEvents();
    last_ = looked_ = clock_.Ticks();
  }

 private:
  static constexpr std::int64_t Interval =
      25;  // milliseconds; with a paint behind it, no more than 50
  static constexpr int MostCalls = 32;

  const platform::Clock& clock_;
  platform::MessagePump& pump_;
  std::int64_t last_;    // when messages were let through
  std::int64_t looked_;  // at the clock
  int stride_ = 1;       // calls from one look to the next
  int calls_ = 1;        // left until then
};

}  // namespace tarnwell::lister
