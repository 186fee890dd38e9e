#include "platform/win32/system/WindowsClock.h"

#include <algorithm>
#include <iterator>

#include "platform/win32/api/FileTime.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {

WindowsClock::WindowsClock(std::string_view zone) : zone_(Wide(zone)) {}

std::int64_t WindowsClock::Now() const {
  FILETIME now{};
  GetSystemTimePreciseAsFileTime(&now);
  return FromFileTime(now);
}

LocalTime WindowsClock::ToLocal(std::int64_t nanoseconds) const {
  std::int64_t steps = nanoseconds / FileTimeStep;
  if (nanoseconds % FileTimeStep < 0) --steps;  // before 1970 too, round down
  steps += FileTimeOf1970;
  const FILETIME time{static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32)};
  DYNAMIC_TIME_ZONE_INFORMATION zone{};
  if (zone_.empty()) {
    GetDynamicTimeZoneInformation(&zone);
  } else {
    zone_.copy(zone.TimeZoneKeyName, std::size(zone.TimeZoneKeyName) - 1);
  }
  SYSTEMTIME moment{};
  SYSTEMTIME local{};
  TIME_ZONE_INFORMATION rules{};
  if (FileTimeToSystemTime(&time, &moment) == FALSE ||
      GetTimeZoneInformationForYear(moment.wYear, &zone, &rules) == FALSE ||
      SystemTimeToTzSpecificLocalTime(&rules, &moment, &local) == FALSE) {
    return {};
  }
  return {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
}

std::int64_t WindowsClock::Ticks() const {
  static const std::int64_t perSecond = [] {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    return std::max<std::int64_t>(frequency.QuadPart, 1);
  }();
  LARGE_INTEGER count{};
  QueryPerformanceCounter(&count);
  return count.QuadPart / perSecond * 1000 + count.QuadPart % perSecond * 1000 / perSecond;
}

}  // namespace tarnwell::platform
