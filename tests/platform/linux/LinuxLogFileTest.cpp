#include <sys/resource.h>

#include "TempFolder.h"
#include "platform/linux/system/LinuxLogFile.h"

namespace tarnwell::platform {
namespace {

const std::string firstLogLine = "# Tarnwell message log\n";

TEST(LinuxLogFile, KeepsTheNewerHalfFromTheStartOfALine) {
  const TempFolder folder;
  const std::string path = folder / "_MsgLog.txt";
  EXPECT_FALSE(LinuxLogFile::Open(nullptr, folder.Path()));
  EXPECT_FALSE(LinuxLogFile::Open("0", folder.Path()));
  EXPECT_EQ(folder.Names(), "");
  const auto log = LinuxLogFile::Open("1", folder.Path(), 100);
  for (int line = 10; line < 70; ++line) {
    log->Append("line " + std::to_string(line));
    const std::string text = Get(path);
    EXPECT_LE(text.size(), 100U);
    EXPECT_TRUE(text.starts_with(firstLogLine + "line ")) << text;
    EXPECT_TRUE(text.ends_with("line " + std::to_string(line) + "\n")) << text;
    EXPECT_GE(std::ranges::count(text, '\n'), std::min(line - 8, 8));
  }
  std::filesystem::remove(path);
  log->Append("anew");
  EXPECT_EQ(Get(path), firstLogLine + "anew\n");
  EXPECT_EQ(folder.Names(), "_MsgLog.txt ");
}

TEST(LinuxLogFile, LeavesAloneWhatIsNoLogOfItsOwn) {
  const TempFolder folder;
  folder.Make({"user.usr=settings", "link->user.usr", "nowhere->gone", "fifo|", "folder/",
               "empty=", "cut=" + firstLogLine + "half"});
  std::filesystem::create_hard_link(folder / "empty", folder / "second");
  for (const char* const name : {"user.usr", "link", "nowhere", "fifo", "folder", "empty", "x/y"}) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(LinuxLogFile::Open((folder / name).c_str(), "")) << name;
    EXPECT_EQ(std::ranges::count(testing::internal::GetCapturedStderr(), '\n'), 1) << name;
  }
  EXPECT_EQ(Get(folder / "user.usr"), "settings");
  EXPECT_EQ(folder.Names(), "cut empty fifo folder link nowhere second user.usr ");

  const auto log = LinuxLogFile::Open((folder / "cut").c_str(), "");
  log->Append("next");
  EXPECT_EQ(Get(folder / "cut"), firstLogLine + "half\nnext\n");
  EXPECT_FALSE(LinuxLogFile::Open((folder / "cut").c_str(), ""));  // another run's
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
  EXPECT_EQ(Get(folder / "_MsgLog.txt"), firstLogLine + "first\n");
}

}  // namespace
}  // namespace tarnwell::platform
