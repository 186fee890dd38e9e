#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "platform/linux/system/LinuxClock.h"

namespace tarnwell::platform {
namespace {

TEST(LinuxClock, GivesLocalTimeAlsoBefore1970) {
  const LinuxClock clock;
  setenv("TZ", "XYZ-02:30", 1);
  tzset();
  const LocalTime late = clock.ToLocal(1'709'164'799'999'999'999);  // 2024-02-28 23:59:59 UTC
  const LocalTime early = clock.ToLocal(-1);
  unsetenv("TZ");
  tzset();
  EXPECT_EQ(late.Month * 100 + late.Day, 229);
  EXPECT_EQ(late.Hour * 100 + late.Minute, 229);
  EXPECT_EQ(early.Year * 100 + early.Second, 197059);
  EXPECT_LE(std::abs(clock.Now() / 1'000'000'000 - std::time(nullptr)), 1);
  const std::int64_t ticks = clock.Ticks();
  EXPECT_GE(clock.Ticks(), ticks);
}

}  // namespace
}  // namespace tarnwell::platform
