#include "platform/linux/system/LinuxClock.h"

#include <ctime>

namespace tarnwell::platform {
namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

}  // namespace

std::int64_t LinuxClock::Now() const {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return now.tv_sec * nanosecondsPerSecond + now.tv_nsec;
}

LocalTime LinuxClock::ToLocal(std::int64_t nanoseconds) const {
  std::time_t seconds = nanoseconds / nanosecondsPerSecond;
  if (nanoseconds % nanosecondsPerSecond < 0) --seconds;  // before 1970 too, round down
  std::tm local{};
  if (localtime_r(&seconds, &local) == nullptr) return {};
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

std::int64_t LinuxClock::Ticks() const {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

}  // namespace tarnwell::platform
