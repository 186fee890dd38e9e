// File operations that others get in the way of.
#include <fcntl.h>

#include <cerrno>

#include "Meddler.h"
#include "OperationFixture.h"
#include "platform/linux/operation/HoldFolder.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

const std::vector<unsigned> pathCalls{SYS_statx, SYS_openat, SYS_readlinkat, SYS_renameat2,
                                      SYS_unlinkat};

TEST(OperationRaces, AMoveDeletesNothingThatTookThePlaceOfWhatItCopied) {
  for (const bool isLink : {true, false}) {
    bool swapped = true;
    for (int at = 1; swapped; ++at) {
      const TempFolder here;
      const TempFolder there(otherVolume);
      isLink ? fs::create_symlink("nowhere", here / "item") : Put(here / "item", "old");
      Put(here / "other", "mine");
      swapped = false;
      int calls = 0;
      ScriptedUser user;
      const bool held = RunMeddled(
          pathCalls,
          [&](const char* name) {
            if (name != std::string("item") || ++calls != at) return;
            swapped = true;
            fs::rename(here / "other", here / "item");
          },
          [&] { Do(user, FileFunction::Move, {here / "item"}, there / "item"); });
      if (!held) GTEST_SKIP() << "needs the right to hold calls up";
      const std::string now = swapped ? "item" : "other";
      EXPECT_TRUE(Get(here / now) == "mine" || Get(there / now) == "mine") << isLink << at;
      EXPECT_EQ(NamesBelow(here.Path()).find(".tarnwell"), std::string::npos) << isLink << at;
    }
  }
}

TEST(OperationRaces, NothingIsCopiedIntoAFolderThatSomebodyPutInThePlaceOfANewOne) {
  if (geteuid() != 0) GTEST_SKIP() << "needs somebody else";
  const TempFolder here;
  for (const char* tree : {"files", "folders"}) fs::create_directories(here / tree + "/private");
  Put(here / "files/secret", "x");
  for (const char* tree : {"files", "folders"}) {
    const TempFolder there;
    std::string taken;
    ScriptedUser user;
    int code = 0;
    const bool held = RunMeddled(
        {SYS_openat},
        [&](const char* name) {
          const std::string path = there / name;
          if (!taken.empty() || name[0] == '/' || there.Names() != std::string(name) + " ") return;
          fs::rename(path, there / "aside");
          fs::create_directory(taken = path);
          chown(path.c_str(), 65534, 65534);
        },
        [&] { code = Do(user, FileFunction::Copy, {here / tree}, there / tree).Code; });
    if (!held) GTEST_SKIP() << "needs the right to hold calls up";
    EXPECT_EQ(code, ESTALE);
    EXPECT_TRUE(!taken.empty() && fs::is_empty(taken)) << tree;
  }
}

TEST(OperationRaces, OneFolderUnderTwoMountsIsNoTargetForItself) {
  const TempFolder here;
  fs::create_directories(here / "real/folder/empty");
  fs::create_directory(here / "view");
  Put(here / "real/file", "x");
  fs::create_symlink("file", here / "real/link");
  if (std::system(("bindfs '" + here / "real' '" + here / "view' 2>/dev/null").c_str()) != 0) {
    GTEST_SKIP() << "bindfs is not installed, or may not mount";
  }
  const auto before = Describe(here / "real");
  ScriptedUser user;
  user.Conflict = {ConflictChoice::Replace, true};
  for (const auto& [from, to] : {std::pair("view", "real/"), std::pair("real", "view/")}) {
    const std::string folder = here / from;
    EXPECT_EQ(Do(user, FileFunction::Move, {folder + "/file", folder + "/link", folder + "/folder"},
                 here / to)
                  .Code,
              EEXIST);
    EXPECT_EQ(Describe(here / "real"), before);
  }
  EXPECT_EQ(std::system(("umount '" + here / "view'").c_str()), 0);
}

TEST(OperationRaces, WhatOthersAreMakingIsLeftAndWhatKilledMovesHeldComesBack) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  fs::create_directory(here / "tree");
  Put(here / "tree/held", "x");
  ASSERT_EQ(InChild([&] {
              const int tree = open((here / "tree").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
              return (new HoldFolder(tree))->Take("held").Value();  // its end does not come
            }),
            0);
  TemporaryName name;
  ASSERT_EQ(name.Renew(), NoError);
  Put(here / "tree/" + name.Text(), "being written");
  ScriptedUser user;
  EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code, EBUSY);
  EXPECT_EQ(NamesBelow(there.Path()), "tree tree/held ");
  EXPECT_EQ(NamesBelow(here.Path()), std::string("tree tree/") + name.Text() + " ");
  EXPECT_EQ(user.Heard, std::string("remark:") + name.Text() + " ");
}

}  // namespace
}  // namespace tarnwell::platform
