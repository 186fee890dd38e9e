// The time by the system's calls.
#pragma once

#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace tarnwell::platform {

class WindowsClock : public Clock {
 public:
  // Takes the name of a time zone as the registry has it ("W. Europe Standard Time"); the empty one
  // means the user's. Local times go by the rules of the zone in the year concerned.
  explicit WindowsClock(std::string_view zone = "");

  std::int64_t Now() const override;
  LocalTime ToLocal(std::int64_t nanoseconds) const override;
  std::int64_t Ticks() const override;

 private:
  std::wstring zone_;
};

}  // namespace tarnwell::platform
