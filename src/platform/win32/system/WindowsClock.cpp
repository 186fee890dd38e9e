#include "platform/win32/system/WindowsClock.h"

#include <algorithm>
#include <iterator>

#include "platform/win32/api/FileTime.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

// The system reads the registry for each answer, while a list asks for each row.
constexpr ULONGLONG RulesHold = 1000;  // milliseconds

std::optional<TIME_ZONE_INFORMATION> FindRules(const std::wstring& name, WORD year) {
  DYNAMIC_TIME_ZONE_INFORMATION zone{};
  if (name.empty()) {
    GetDynamicTimeZoneInformation(&zone);
  } else {
    name.copy(zone.TimeZoneKeyName, std::size(zone.TimeZoneKeyName) - 1);
  }
  TIME_ZONE_INFORMATION rules{};
  if (GetTimeZoneInformationForYear(year, &zone, &rules) != FALSE) return rules;
  if (!name.empty()) return {};
  // One that was set by hand stands in no list, and has the same rules in all years.
  rules.Bias = zone.Bias;
  rules.StandardDate = zone.StandardDate;
  rules.StandardBias = zone.StandardBias;
  rules.DaylightDate = zone.DaylightDate;
  rules.DaylightBias = zone.DaylightBias;
  return rules;
}

}  // namespace

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
  SYSTEMTIME moment{};
  SYSTEMTIME local{};
  if (FileTimeToSystemTime(&time, &moment) == FALSE) return {};
  const std::optional<TIME_ZONE_INFORMATION> rules = RulesOf(moment.wYear);
  if (!rules || SystemTimeToTzSpecificLocalTime(&*rules, &moment, &local) == FALSE) return {};
  return {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
}

std::optional<TIME_ZONE_INFORMATION> WindowsClock::RulesOf(WORD year) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (const ULONGLONG now = GetTickCount64(); !lookedAt_ || now - *lookedAt_ > RulesHold) {
    lookedAt_ = now;
    rules_.clear();
  }
  const auto [place, isNew] = rules_.try_emplace(year);
  if (isNew) place->second = FindRules(zone_, year);
  return place->second;
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
