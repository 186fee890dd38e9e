// The time by the system's calls.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

class WindowsClock : public Clock {
 public:
  // Takes the name of a time zone as the registry has it ("W. Europe Standard Time"); the empty one
  // means the user's, another choice of which is known within a second. Local times go by the rules
  // of the zone in the year concerned.
  explicit WindowsClock(std::string_view zone = "");

  std::int64_t Now() const override;
  LocalTime ToLocal(std::int64_t nanoseconds) const override;
  std::int64_t Ticks() const override;

 private:
  // Nothing where there is no such zone.
  std::optional<TIME_ZONE_INFORMATION> RulesOf(WORD year) const;

  const std::wstring zone_;
  mutable std::mutex mutex_;
  mutable std::optional<ULONGLONG> lookedAt_;                           // by GetTickCount64
  mutable std::map<WORD, std::optional<TIME_ZONE_INFORMATION>> rules_;  // found since then
};

}  // namespace tarnwell::platform
