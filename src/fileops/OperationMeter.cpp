#include "fileops/OperationMeter.h"

#include <algorithm>
#include <cmath>

#include "platform/CountedTexts.h"

namespace tarnwell::fileops {

using platform::CountedText;

namespace {

// Speed is to follow what happens; the time left is to jump about less.
constexpr OperationMeter::Ticks SpeedSpan = 3000;
constexpr OperationMeter::Ticks LeftSpan = 20000;
// Before that any number would be a guess.
constexpr OperationMeter::Ticks LeastSpan = 1000;
// How many bytes could be copied while a file is made: about this many on disks, sticks and shares
// alike, for what is fast at the one is so at the other.
constexpr std::uint64_t BytesPerItem = 128 << 10;
constexpr double LongestWait = 100.0 * 24 * 3600;  // seconds

constexpr std::uint64_t RoundedUp(std::uint64_t number, std::uint64_t step) {
  return (number + step - 1) / step * step;
}

}  // namespace

std::uint64_t OperationMeter::WorkOf(std::uint64_t bytes, std::uint64_t items) {
  return bytes + items * BytesPerItem;
}

void OperationMeter::Note(Ticks now, std::uint64_t bytes, std::uint64_t items) {
  if (pausedAt_) return;
  samples_.push_back({now - pausedFor_, bytes, WorkOf(bytes, items)});
  // One older than the span stays, for the rate to reach over all of it.
  while (samples_.size() > 2 && samples_.back().At - samples_[1].At >= LeftSpan) {
    samples_.pop_front();
  }
}

void OperationMeter::Pause(Ticks now) {
  if (!pausedAt_) pausedAt_ = now;
}

void OperationMeter::Continue(Ticks now) {
  if (pausedAt_) pausedFor_ += now - *pausedAt_;
  pausedAt_.reset();
}

double OperationMeter::Rate(std::uint64_t Sample::*count, Ticks span) const {
  if (samples_.empty()) return 0;
  const Sample& last = samples_.back();
  const auto first = std::ranges::find_if(
      samples_, [&](const Sample& sample) { return last.At - sample.At <= span; });
  const Ticks passed = last.At - first->At;
  // A count may shrink, when what was half done is given up.
  if (passed < LeastSpan || last.*count <= (*first).*count) return 0;
  return static_cast<double>(last.*count - (*first).*count) * 1000 / static_cast<double>(passed);
}

std::uint64_t OperationMeter::BytesPerSecond() const {
  return static_cast<std::uint64_t>(Rate(&Sample::Bytes, SpeedSpan));
}

std::optional<std::uint64_t> OperationMeter::SecondsLeft(std::uint64_t bytesTotal,
                                                         std::uint64_t itemsTotal) const {
  const std::uint64_t total = WorkOf(bytesTotal, itemsTotal);
  const double rate = Rate(&Sample::Work, LeftSpan);
  if (rate <= 0) return std::nullopt;
  const std::uint64_t done = std::min(samples_.back().Work, total);
  return static_cast<std::uint64_t>(
      std::ceil(std::min(static_cast<double>(total - done) / rate, LongestWait)));
}

int PercentOf(std::uint64_t done, std::uint64_t total) {
  if (total == 0) return 0;
  if (done >= total) return 100;
  return std::min(static_cast<int>(static_cast<double>(done) * 100 / static_cast<double>(total)),
                  99);
}

std::string TimeLeftText(const platform::NumberForms& forms, std::uint64_t seconds) {
  constexpr std::uint64_t minute = 60;
  constexpr std::uint64_t hour = 60 * minute;
  constexpr std::uint64_t day = 24 * hour;
  const auto about = [&](std::uint64_t number, CountedText text) {
    return platform::Counted(forms, text, number);
  };
  if (seconds <= 5) return "A few seconds left";
  if (seconds <= 50)
    return about(RoundedUp(seconds, seconds > 20 ? 10 : 5), CountedText::SecondsLeft);
  if (seconds <= hour - minute)
    return about(RoundedUp(seconds, minute) / minute, CountedText::MinutesLeft);
  if (seconds <= 2 * day) return about((seconds + hour / 2) / hour, CountedText::HoursLeft);
  return about((seconds + day / 2) / day, CountedText::DaysLeft);
}

}  // namespace tarnwell::fileops
