// How fast a file operation goes and how long it will yet take. Arithmetic alone: the caller brings
// the clock and the counts.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "platform/NumberForms.h"

namespace tarnwell::fileops {

class OperationMeter {
 public:
  // Milliseconds of a clock that never goes back, here and below.
  using Ticks = std::int64_t;

  // How far the work has come by now. To be told some times a second, also when nothing has moved.
  void Note(Ticks now, std::uint64_t bytes, std::uint64_t items);
  // The time from here to Continue counts for nothing, and neither does what is noted in it.
  void Pause(Ticks now);
  void Continue(Ticks now);

  // Over the last few seconds; 0 as long as nothing can be said.
  std::uint64_t BytesPerSecond() const;
  // By bytes and items, since making a file costs time whatever its size. Nothing as long as
  // nothing can be said, and while the work stands still.
  std::optional<std::uint64_t> SecondsLeft(std::uint64_t bytesTotal,
                                           std::uint64_t itemsTotal) const;

 private:
  struct Sample {
    Ticks At;  // working time
    std::uint64_t Bytes;
    std::uint64_t Work;
  };
  static std::uint64_t WorkOf(std::uint64_t bytes, std::uint64_t items);
  double Rate(std::uint64_t Sample::*count, Ticks span) const;  // a second

  std::deque<Sample> samples_;  // the newest at the end
  std::optional<Ticks> pausedAt_;
  Ticks pausedFor_ = 0;
};

// How much of the total is done, 0 to 100; 100 only when all is. 0 of 0 is 0.
int PercentOf(std::uint64_t done, std::uint64_t total);

// "About 5 minutes left", the coarser the longer it takes.
std::string TimeLeftText(const platform::NumberForms& forms, std::uint64_t seconds);

}  // namespace tarnwell::fileops
