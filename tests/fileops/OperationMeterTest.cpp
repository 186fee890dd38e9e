#include <gtest/gtest.h>

#include "fakes/FakePlatform.h"
#include "fileops/OperationMeter.h"

namespace tarnwell::fileops {
namespace {

TEST(OperationMeterTest, LeavesPausesOutAndForgetsOldSpeeds) {
  OperationMeter meter;
  EXPECT_EQ(meter.BytesPerSecond(), 0U);
  EXPECT_EQ(meter.SecondsLeft(1000, 10), std::nullopt);
  for (int second = 0; second <= 10; ++second) meter.Note(second * 1000, second * 100U, second);
  EXPECT_EQ(meter.BytesPerSecond(), 100U);
  EXPECT_EQ(meter.SecondsLeft(0, 12), 2U);
  // Few bytes in many files take their time.
  EXPECT_EQ(meter.SecondsLeft(3000, 1010), 1000U);
  meter.Pause(10000);
  meter.Note(50000, 1000, 10);
  meter.Continue(90000);
  meter.Note(91000, 1100, 11);
  EXPECT_EQ(meter.BytesPerSecond(), 100U);
  for (int second = 92; second <= 130; ++second) meter.Note(second * 1000, 1100, 11);
  EXPECT_EQ(meter.BytesPerSecond(), 0U);
  EXPECT_EQ(meter.SecondsLeft(3000, 12), std::nullopt);

  EXPECT_EQ(PercentOf(0, 0), 0);
  EXPECT_EQ(PercentOf(~0ULL - 1, ~0ULL), 99);
  EXPECT_EQ(PercentOf(3, 3), 100);
  const fakes::FakeNumberForms forms;
  EXPECT_EQ(TimeLeftText(forms, 4), "A few seconds left");
  EXPECT_EQ(TimeLeftText(forms, 11), "About 15 seconds left");
  EXPECT_EQ(TimeLeftText(forms, 51), "About 1 minute left");
  EXPECT_EQ(TimeLeftText(forms, 3541), "About 1 hour left");
  EXPECT_EQ(TimeLeftText(forms, 200000), "About 2 days left");
}

}  // namespace
}  // namespace tarnwell::fileops
