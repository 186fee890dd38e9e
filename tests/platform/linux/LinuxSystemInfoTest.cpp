#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

#include "TempFolder.h"
#include "platform/linux/posix/TemporaryName.h"
#include "platform/linux/system/LinuxSystemInfo.h"

namespace tarnwell::platform {
namespace {

// An installed program: bin, share/tarnwell with two skins and the tips.
class Installed : public testing::Test {
 protected:
  Installed() {
    std::filesystem::create_directories(root_ / "bin");
    std::filesystem::create_directories(root_ / "share/tarnwell/skins");
    Put(root_ / "share/tarnwell/skins/a.twk", "a");
    Put(root_ / "share/tarnwell/skins/b.twk", "b");
    Put(root_ / "share/tarnwell/TIPOFDAY.TXT", "tips");
    places_.ExecutableFolder = root_ / "bin";
    places_.HomeFolder = root_ / "home";
  }

  TempFolder root_;
  ProgramPlaces places_;
};

TEST_F(Installed, FillsTheUsersFolderAtFirstStartOnly) {
  const std::string folder = root_ / "home/.local/share/tarnwell";
  const LinuxSystemInfo info(places_);
  EXPECT_EQ(info.ProgramFolder(), folder);
  EXPECT_EQ(info.DataFolder(), root_ / "share/tarnwell");
  EXPECT_EQ(Get(folder + "/skins/a.twk") + Get(folder + "/skins/b.twk"), "ab");
  EXPECT_EQ(Get(folder + "/TIPOFDAY.TXT"), "tips");

  std::filesystem::remove(folder + "/skins/a.twk");
  Put(folder + "/skins/b.twk", "mine");
  places_.DataHome = "relative";
  EXPECT_EQ(LinuxSystemInfo(places_).ProgramFolder(), folder);
  EXPECT_FALSE(std::filesystem::exists(folder + "/skins/a.twk"));
  EXPECT_EQ(Get(folder + "/skins/b.twk"), "mine");
  places_.DataHome = root_ / "data home";
  EXPECT_EQ(LinuxSystemInfo(places_).ProgramFolder(), root_ / "data home/tarnwell");
}

TEST_F(Installed, FinishesAFirstStartCutShort) {
  const std::string folder = root_ / "own";
  std::filesystem::create_directories(folder + "/.skins-unfinished");
  Put(folder + "/.skins-unfinished/a.twk", "a");
  Put(folder + "/TIPOFDAY.TXT", "mine");
  ASSERT_EQ(InChild([&] {  // as one that was killed while it saved
              TemporaryName name;
              if (name.Renew() != NoError) return 1;
              Put(folder + "/" + name.Text(), "half");
              return 0;
            }),
            0);
  places_.TarnwellHome = folder + "/";
  EXPECT_EQ(LinuxSystemInfo(places_).ProgramFolder(), folder);
  EXPECT_EQ(Get(folder + "/skins/b.twk") + Get(folder + "/TIPOFDAY.TXT"), "bmine");
  EXPECT_FALSE(std::filesystem::exists(folder + "/.skins-unfinished"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 2);
}

TEST_F(Installed, PrefersTarnwellHomeThenAWritableFolderOfItsOwn) {
  std::filesystem::create_directories(root_ / "bin/skins");
  EXPECT_EQ(LinuxSystemInfo(places_).ProgramFolder(), root_ / "bin");
  EXPECT_FALSE(std::filesystem::exists(root_ / "bin/TIPOFDAY.TXT"));
  places_.TarnwellHome = root_ / "new/own";
  EXPECT_EQ(LinuxSystemInfo(places_).ProgramFolder(), root_ / "new/own");
  EXPECT_EQ(Get(root_ / "new/own/skins/a.twk"), "a");

  places_.TarnwellHome.clear();
  std::filesystem::permissions(root_ / "bin", std::filesystem::perms(0555));
  const int result = InChild([&] {
    BecomeNobody();
    // The home cannot be made either: the path stands all the same.
    places_.HomeFolder = "/proc/missing";
    const LinuxSystemInfo info(places_);
    if (info.ProgramFolder() != "/proc/missing/.local/share/tarnwell") return 1;
    // The reason is that of the step that failed, and the skins are those that came with it.
    if (info.FolderTrouble().Code != ENOENT) return 2;
    return info.SkinFolder() == root_ / "share/tarnwell/skins" ? 0 : 3;
  });
  EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace tarnwell::platform
