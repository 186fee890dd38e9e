#include <sys/resource.h>

#include "TempFolder.h"
#include "platform/linux/system/LinuxLogFile.h"

namespace tarnwell::platform {
namespace {

TEST(LinuxLogFile, LeavesAloneLinksAndBeginsAnewWhenDeleted) {
  const TempFolder folder;
  folder.Make({"user.usr=settings", "link->user.usr", "nowhere->gone", "fifo|"});
  for (const char* const name : {"link", "nowhere", "fifo"}) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(LinuxLogFile::Open((folder / name).c_str(), "")) << name;
    EXPECT_EQ(std::ranges::count(testing::internal::GetCapturedStderr(), '\n'), 1) << name;
  }
  EXPECT_EQ(Get(folder / "user.usr"), "settings");
  EXPECT_EQ(folder.Names(), "fifo link nowhere user.usr ");

  const auto log = LinuxLogFile::Open("1", folder.Path());
  log->Append("first");
  std::filesystem::remove(folder / "_MsgLog.txt");
  log->Append("anew");
  EXPECT_EQ(Get(folder / "_MsgLog.txt"), "# Tarnwell message log\nanew\n");
}

TEST(LinuxLogFile, EndsWithAWholeLineWhenTheDiskIsFull) {
  const TempFolder folder;
  InChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    const auto log = LinuxLogFile::Open("1", folder.Path());
    log->Append("first");
    const rlimit full = {400, 400};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; ++i) log->Append(std::string(400, 'x'));
    EXPECT_EQ(std::ranges::count(testing::internal::GetCapturedStderr(), '\n'), 1);
  });
  EXPECT_EQ(Get(folder / "_MsgLog.txt"), "# Tarnwell message log\nfirst\n");
}

}  // namespace
}  // namespace tarnwell::platform
