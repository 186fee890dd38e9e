// Port: numbers and dates on the screen, as the user's language writes them. What goes into files
// has forms of its own.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Clock.h"

namespace tarnwell::platform {

// All texts are valid UTF-8.
class NumberForms {
 public:
  virtual ~NumberForms() = default;
  // In groups of digits: "215,885", "215.885", "2,15,885".
  virtual std::string Grouped(std::uint64_t number) const = 0;
  // Rounded to so many decimals: "2.8", "2,8". The number is not negative and below 1024.
  virtual std::string Decimal(double number, int decimals) const = 0;
  // A day and its time to the second, the year in full; most have the same width. By ISO 8601
  // where the user has chosen no language: "2001-02-28 13:05:09".
  virtual std::string DateAndTime(const LocalTime& time) const = 0;
  // The same without the seconds.
  virtual std::string DateAndMinute(const LocalTime& time) const = 0;
};

}  // namespace tarnwell::platform
