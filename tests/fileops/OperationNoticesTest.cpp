#include "fakes/FakeOperationEngine.h"
#include "fakes/FakePlatform.h"
#include "fileops/OperationLine.h"
#include "fileops/OperationNotices.h"

namespace tarnwell::fileops {
namespace {

struct FakeNotices : platform::DesktopNotices {
  std::string Told;
  void ShowTaskEntry(const platform::TaskEntry& entry) override {
    Told += (entry.Percent ? std::to_string(*entry.Percent) : "-") + (entry.IsUrgent ? "! " : " ");
  }
  void Notify(const platform::Notification& notification) override {
    Told += "[" + notification.Title + ": " + notification.Text + "] ";
    if (notification.IsTrouble) notification.Clicked();
  }
};

TEST(OperationNotices, TellsHowFarAllAreAndOfTheEndOfLongOnesUnseen) {
  fakes::FakePlatform machine;
  fakes::FakeOperationEngine engine;
  UndoHistory history;
  OperationQueue operations(engine, machine.Clock, machine.Files.Syntax(), machine.Forms, history);
  FakeNotices desktop;
  bool isActive = false, isBack = false;
  OperationNotices notices(
      operations, desktop, [&] { return isActive; }, [&] { isBack = true; });
  // What the desktop is told of a copy on that drive that is halfway, asks, goes on, and ends.
  const auto told = [&](std::int64_t took, const platform::OperationResult& result) {
    desktop.Told.clear();
    const platform::OperationRequest copy{
        platform::FileFunction::Copy, {"C:\\a", 5}, {"C:\\b\\", 6}, 0, {}};
    operations.Start({platform::CommandKind::Copy, {copy}});
    const std::size_t run = engine.Requests.size() - 1;
    platform::ProgressReport report;
    report.Numbers.ItemsDone = 1;
    report.Numbers.ItemsTotal = 2;
    engine[run].OnProgress(report);
    machine.Clock.Tick += took;
    engine[run].OnProgress(report);
    engine[run].OnProgress(report);
    engine[run].OnAsking(true);
    engine[run].OnAsking(false);
    engine.Done(run, result);
    return desktop.Told;
  };
  EXPECT_EQ(told(10001, {}), "50 50! 50 [Copying \"a\" to b: Done.] - ");
  EXPECT_FALSE(isBack);
  EXPECT_EQ(told(10000, {}), "50 50! 50 - ");
  EXPECT_EQ(told(10001, {.Code = 1, .Aborted = true}), "50 50! 50 - ");
  EXPECT_EQ(told(10001, {.Code = 5}),
            "50 50! 50 [Copying \"a\" to b: Not everything could be done.] - ");
  EXPECT_TRUE(isBack);
  isActive = true;
  EXPECT_EQ(told(10001, {}), "50 50! 50 - ");
}

TEST(OperationLine, WhatTheSystemDoesGoesOnToItsEnd) {
  OperationRecord record;
  record.State = OperationState::Running;
  record.Order.Requests.resize(2);
  const auto offered = [&] {
    std::string captions;
    for (std::size_t deed = 0; deed < OperationDeedCount; ++deed) {
      const auto each = static_cast<OperationDeed>(deed);
      if (CanDo(each, record, true)) captions += std::string(CaptionOf(each)) + " ";
    }
    return captions;
  };
  EXPECT_EQ(offered(), "Pause Cancel ");
  record.Report.Numbers.IsBySystem = true;
  EXPECT_EQ(offered(), "Cancel ");  // of what is to come
  record.At = 1;
  EXPECT_EQ(offered(), "");
  EXPECT_LT(PercentOf(record), 0);
}

}  // namespace
}  // namespace tarnwell::fileops
