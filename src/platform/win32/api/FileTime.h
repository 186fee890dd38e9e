// Times as the system tells them.
#pragma once

#include <cstdint>

#include "platform/FileSystem.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// A FILETIME counts steps of 100 nanoseconds from 1601-01-01 UTC.
inline constexpr std::int64_t FileTimeStep = 100;
inline constexpr std::int64_t FileTimeOf1970 = 116'444'736'000'000'000;

// Nanoseconds since 1970-01-01 UTC; UnknownTime for 0, by which file systems say that they keep no
// such time, and for what those cannot tell.
inline std::int64_t FromFileTime(const FILETIME& time) {
  const std::uint64_t steps =
      (static_cast<std::uint64_t>(time.dwHighDateTime) << 32U) | time.dwLowDateTime;
  constexpr std::uint64_t most = FileTimeOf1970 + INT64_MAX / FileTimeStep;
  constexpr std::int64_t least = FileTimeOf1970 + INT64_MIN / FileTimeStep;
  if (steps == 0 || steps > most || static_cast<std::int64_t>(steps) < least) return UnknownTime;
  return (static_cast<std::int64_t>(steps) - FileTimeOf1970) * FileTimeStep;
}

}  // namespace tarnwell::platform
