#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "TempFolder.h"
#include "platform/linux/files/ReplaceFile.h"

namespace tarnwell::platform {
namespace {

struct stat StatOf(const std::string& path) {
  struct stat found {};
  EXPECT_EQ(lstat(path.c_str(), &found), 0) << path;
  return found;
}

TEST(ReplaceFile, KeepsModeAndOwner) {
  const TempFolder folder;
  Put(folder / "old", "old", 0640);
  if (geteuid() == 0) {
    ASSERT_EQ(chown((folder / "old").c_str(), 1234, 5678), 0);
  }
  const struct stat before = StatOf(folder / "old");
  const std::string big(3'000'000, 'x');
  EXPECT_TRUE(ReplaceFile(folder / "old", big));
  EXPECT_EQ(Get(folder / "old"), big);
  const struct stat after = StatOf(folder / "old");
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_TRUE(after.st_uid == before.st_uid && after.st_gid == before.st_gid);

  const mode_t mask = umask(027);
  EXPECT_TRUE(ReplaceFile(folder / "new", ""));
  umask(mask);
  EXPECT_EQ(StatOf(folder / "new").st_mode & 07777, 0640U);
  EXPECT_EQ(folder.Names(), "new old ");
}

TEST(ReplaceFile, WritesThroughLinksAndToFilesAlone) {
  const TempFolder folder;
  mkdir((folder / "sub").c_str(), 0755);
  mkfifo((folder / "fifo").c_str(), 0644);
  Put(folder / "sub/file", "old");
  symlink("sub/second", (folder / "first").c_str());
  symlink("file", (folder / "sub/second").c_str());  // from the folder that holds the link
  symlink((folder / "made").c_str(), (folder / "dangling").c_str());
  symlink("loop", (folder / "loop").c_str());
  symlink("no folder/file", (folder / "lost").c_str());

  EXPECT_TRUE(ReplaceFile(folder / "first", "new") && ReplaceFile(folder / "dangling", "made"));
  EXPECT_EQ(Get(folder / "sub/file") + Get(folder / "made"), "newmade");
  EXPECT_EQ(ReplaceFile(folder / "loop", "").Code, ELOOP);
  EXPECT_EQ(ReplaceFile(folder / "sub", "x").Code, EISDIR);
  EXPECT_EQ(ReplaceFile(folder / "sub/", "x").Code, EISDIR);
  for (const std::string& path : {folder / "lost", std::string(), folder / "missing/file"}) {
    EXPECT_EQ(ReplaceFile(path, "x").Code, ENOENT);
  }
  EXPECT_EQ(InChild([&] { return ReplaceFile(folder / "fifo", "x") ? 1 : 0; }), 0);
  EXPECT_TRUE(S_ISFIFO(StatOf(folder / "fifo").st_mode));
  for (const char* link : {"first", "sub/second", "dangling", "loop", "lost"}) {
    EXPECT_TRUE(S_ISLNK(StatOf(folder / link).st_mode)) << link;
  }
  EXPECT_EQ(folder.Names(), "dangling fifo first loop lost made sub ");
}

TEST(ReplaceFile, KeepsTheOldContentOnFailure) {
  const TempFolder folder;
  Put(folder / "file", "old", 0666);
  Put(folder / "read-only", "old", 0444);
  mkdir((folder / "shut").c_str(), 0755);
  Put(folder / "shut/file", "old", 0666);
  const int writable = InChild([&] {
    BecomeNobody();
    if (ReplaceFile(folder / "read-only", "new").Code != EACCES) return 1;
    if (geteuid() == getuid()) chmod((folder / "shut").c_str(), 0555);
    const int shut = ReplaceFile(folder / "shut/file", "new").Code;
    if (geteuid() == getuid()) chmod((folder / "shut").c_str(), 0755);
    return shut == EACCES ? 0 : 2;
  });
  EXPECT_EQ(writable, 0);
  // A limit on the size of files fails in the middle of the writing, as a full disk does.
  const int full = InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100'000, 100'000};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
    return ReplaceFile(folder / "file", std::string(200'000, 'x')).Code == EFBIG ? 0 : 2;
  });
  EXPECT_EQ(full, 0);
  for (const char* name : {"file", "read-only", "shut/file"}) {
    EXPECT_EQ(Get(folder / name), "old") << name;
  }
  EXPECT_EQ(folder.Names(), "file read-only shut ");
}

TEST(ReplaceFile, GivesAnotherGroupNoMoreThanEverybodyHad) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a file of another user";
  const TempFolder folder;
  Put(folder / "file", "old", 0666);
  ASSERT_EQ(chown((folder / "file").c_str(), 1234, 5678), 0);
  ASSERT_EQ(chmod((folder / "file").c_str(), 0662), 0);
  EXPECT_EQ(InChild([&] {
              BecomeNobody();
              return ReplaceFile(folder / "file", "new").Code;
            }),
            0);
  EXPECT_EQ(Get(folder / "file"), "new");
  EXPECT_EQ(StatOf(folder / "file").st_mode & 07777, 0622U);
}

}  // namespace
}  // namespace tarnwell::platform
