#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <map>

#include "TempFolder.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/ReplaceFile.h"

namespace tarnwell::platform {
namespace {

// Makes a folder in each folder and goes into it: deeper than a path may be long. `each` makes what
// else is to be there, around that folder if it wants to.
void Deepen(
    const std::string& folder, const std::vector<std::string>& names,
    const std::function<void(int)>& each = [](int) {}) {
  int descriptor = open(folder.c_str(), O_PATH | O_DIRECTORY);
  for (const std::string& name : names) {
    each(descriptor);
    mkdirat(descriptor, name.c_str(), 0755);
    const int next = openat(descriptor, name.c_str(), O_PATH | O_DIRECTORY);
    ASSERT_GE(next, 0);
    close(descriptor);
    descriptor = next;
  }
  close(descriptor);
}

std::uint64_t BytesOnDisk(const std::string& path) {
  struct stat found {};
  return stat(path.c_str(), &found) == 0 ? static_cast<std::uint64_t>(found.st_blocks) * 512 : 0;
}

std::map<std::string, FolderEntry> Read(const std::string& folder) {
  std::map<std::string, FolderEntry> entries;
  const base::Status status = LinuxFileSystem().ReadFolder(folder, [&](const FolderEntry& entry) {
    entries[std::string(entry.Name)] = entry;
    return true;
  });
  EXPECT_TRUE(status) << status.Reason;
  return entries;
}

TEST(LinuxFileSystem, ReadsAndWritesOddNames) {
  const TempFolder folder;
  LinuxFileSystem files;
  const std::string names[] = {"line\nbreak", "quote\"'", "\xff\xfe", std::string(255, 'x'),
                               ".dot",        "-rf",      " ",        "100%\t\\"};
  for (const std::string& name : names) {
    ASSERT_TRUE(files.WriteFile(folder / name, "content of " + name)) << name;
  }
  const auto entries = Read(folder.Path());
  EXPECT_EQ(entries.size(), std::size(names));
  for (const std::string& name : names) {
    ASSERT_TRUE(entries.contains(name));
    EXPECT_EQ(entries.at(name).IsHidden, name == ".dot");
    std::string content;
    ItemAttributes attributes;
    EXPECT_TRUE(files.ReadFile(folder / name, content) && content == "content of " + name);
    EXPECT_TRUE(files.ReadAttributes(folder.Path(), name, attributes));
    EXPECT_EQ(attributes.Size, content.size());
    EXPECT_EQ(attributes.IsHidden, name == ".dot");
  }
  // Cut at its NUL, this would be the name of a file that exists.
  const std::string cut = folder / std::string(".dot\0x", 6);
  EXPECT_EQ(files.RemoveFile(cut).Code, EINVAL);
  EXPECT_EQ(files.WriteFile(cut, "").Code, EINVAL);
  EXPECT_FALSE(files.Exists(cut));
  EXPECT_EQ(Get(folder / ".dot"), "content of .dot");
}

TEST(LinuxFileSystem, TellsKindsAndFollowsLinks) {
  const TempFolder folder;
  const LinuxFileSystem files;
  Put(folder / "file", "12345", 0640);
  mkdir((folder / "sub").c_str(), 0755);
  mkfifo((folder / "fifo").c_str(), 0644);
  symlink("file", (folder / "to file").c_str());
  symlink("sub", (folder / "to sub").c_str());
  symlink("nowhere", (folder / "dangling").c_str());
  symlink("loop", (folder / "loop").c_str());
  const timespec times[2] = {{-1, 500'000'000}, {1'000'000'000, 7}};
  utimensat(AT_FDCWD, (folder / "file").c_str(), times, 0);

  struct Case {
    const char* Name;
    ItemKind Kind;  // of what it leads to
    bool IsLink;
  };
  const auto entries = Read(folder.Path());
  for (const Case& each :
       {Case{"file", ItemKind::File, false}, Case{"sub", ItemKind::Folder, false},
        Case{"fifo", ItemKind::Other, false}, Case{"to file", ItemKind::File, true},
        Case{"to sub", ItemKind::Folder, true}, Case{"dangling", ItemKind::Other, true},
        Case{"loop", ItemKind::Other, true}}) {
    SCOPED_TRACE(each.Name);
    ASSERT_TRUE(entries.contains(each.Name));
    const FolderEntry& entry = entries.at(each.Name);
    // A file system may leave the kind open until the item is looked at; links always do.
    EXPECT_TRUE(entry.Kind == ItemKind::Unknown ? !entry.IsLink || each.IsLink
                                                : entry.Kind == each.Kind && !each.IsLink);
    ItemAttributes attributes;
    EXPECT_TRUE(files.ReadAttributes(folder.Path(), each.Name, attributes));
    EXPECT_EQ(attributes.Kind, each.Kind);
    EXPECT_EQ(attributes.IsLink, each.IsLink);
    EXPECT_TRUE(files.Exists(folder / each.Name));
    EXPECT_EQ(files.FolderExists(folder / each.Name), each.Kind == ItemKind::Folder);
  }
  ItemAttributes attributes;
  ASSERT_TRUE(files.ReadAttributes(folder.Path(), "to file", attributes));
  EXPECT_EQ(attributes.Size, 5U);
  EXPECT_EQ(attributes.Mode, 0640U);
  EXPECT_EQ(attributes.Accessed, -500'000'000);
  EXPECT_EQ(attributes.Modified, 1'000'000'000'000'000'007);
  ASSERT_TRUE(files.ReadAttributes(folder.Path(), "", attributes));
  EXPECT_TRUE(attributes.Kind == ItemKind::Folder && attributes.Size == 0);
  EXPECT_EQ(files.ReadAttributes(folder.Path(), "missing", attributes).Code, ENOENT);

  int taken = 0;
  EXPECT_TRUE(files.ReadFolder(folder.Path(), [&](const FolderEntry&) { return ++taken < 3; }));
  EXPECT_EQ(taken, 3);
  EXPECT_EQ(files.ReadFolder(folder / "file", {}).Code, ENOTDIR);
  EXPECT_FALSE(files.ReadFolder(folder / "missing", {}).Reason.empty());
}

TEST(LinuxFileSystem, ReadsAndRemovesFilesAlone) {
  const TempFolder folder;
  mkfifo((folder / "fifo").c_str(), 0644);
  mkdir((folder / "sub").c_str(), 0755);
  LinuxFileSystem files;
  std::string content = "old";
  EXPECT_EQ(InChild([&] {  // which ends also where reading never would
              if (files.ReadFile(folder / "fifo", content)) return 1;
              if (files.ReadFile("/dev/zero", content)) return 2;
              if (files.ReadFile(folder / "sub", content).Code != EISDIR) return 3;
              return content == "old" ? 0 : 4;
            }),
            0);
  EXPECT_TRUE(files.ReadFile("/proc/self/status", content));  // states a size of 0
  EXPECT_NE(content.find("VmPeak"), std::string::npos);

  symlink("sub", (folder / "link").c_str());
  EXPECT_FALSE(files.RemoveFile(folder / "sub"));
  EXPECT_TRUE(files.RemoveFile(folder / "link"));
  EXPECT_EQ(folder.Names(), "fifo sub ");
}

TEST(LinuxFileSystem, KeepsNotes) {
  const TempFolder folder;
  LinuxFileSystem files;
  const std::string odd = "\xff\n" + std::string(253, 'x'), longText(1000, 'c');
  mkdir((folder / "sub").c_str(), 0755);
  Put(folder / odd, "");
  mkfifo((folder / "fifo").c_str(), 0644);
  symlink(odd.c_str(), (folder / "link").c_str());
  symlink("nowhere", (folder / "dangling").c_str());
  symlink("loop", (folder / "loop").c_str());
  base::Status status =
      files.WriteExtendedAttribute(folder / odd, ExtendedAttribute::Comment, longText);
  if (status.Code == ENOTSUP) GTEST_SKIP() << status.Reason;
  ASSERT_TRUE(status) << status.Reason;

  const auto opened = files.OpenFolder(folder.Path(), status);
  const auto noteOf = [&](const std::string& name, ExtendedAttribute note) {
    std::string text = "old";
    const base::Status read = opened->ReadExtendedAttribute(name, note, text);
    return read ? text : std::to_string(read.Code);
  };
  EXPECT_TRUE(files.WriteExtendedAttribute(folder / "link", ExtendedAttribute::Colour, "red"));
  for (const std::string& name : {odd, std::string("link")}) {
    EXPECT_EQ(noteOf(name, ExtendedAttribute::Colour) + noteOf(name, ExtendedAttribute::Comment),
              "red" + longText);
  }
  EXPECT_TRUE(files.WriteExtendedAttribute(folder / odd, ExtendedAttribute::Colour, ""));
  EXPECT_TRUE(files.WriteExtendedAttribute(folder / odd, ExtendedAttribute::Colour, ""));
  for (const std::string& name : {odd, std::string("sub"), std::string("fifo"),
                                  std::string("dangling"), std::string("loop")}) {
    EXPECT_EQ(noteOf(name, ExtendedAttribute::Colour), "") << name;
  }
  EXPECT_EQ(noteOf("missing", ExtendedAttribute::Colour), std::to_string(ENOENT));
  status = files.WriteExtendedAttribute(folder / "dangling", ExtendedAttribute::Colour, "red");
  EXPECT_EQ(status.Reason, "The link leads nowhere");
  EXPECT_EQ(files.WriteExtendedAttribute(folder / "fifo", ExtendedAttribute::Colour, "red").Code,
            EPERM);
  EXPECT_FALSE(files.WriteExtendedAttribute(folder / odd, ExtendedAttribute::Comment,
                                            std::string(100'000, 'x')));
  EXPECT_EQ(noteOf(odd, ExtendedAttribute::Comment), longText);
  EXPECT_EQ(
      files.WriteExtendedAttribute("/proc/self/status", ExtendedAttribute::Colour, "red").Code,
      ENOTSUP);
}

TEST(LinuxFileSystem, SaysWhatToDoWhereANameOrTargetCannotBe) {
  const TempFolder folder;
  LinuxFileSystem files;
  Put(folder / "file", "");
  std::filesystem::create_symlink("nowhere", folder / "link");
  EXPECT_TRUE(files.MakeFolder(folder / "file").Reason.ends_with("Type another name."));
  EXPECT_TRUE(files.Rename(folder / "none", folder / "x").Reason.starts_with("The item, or its"));
  EXPECT_EQ(files.MakeFolder(folder / std::string(256, 'n')).Code, ENAMETOOLONG);
  for (const char* good : {"", "a/b/", "../x"})
    EXPECT_TRUE(files.CheckTarget(folder / good)) << good;
  EXPECT_TRUE(files.CheckTarget("/"));
  for (const char* bad : {"file", "file/a/b"}) {
    EXPECT_EQ(files.CheckTarget(folder / bad).Reason,
              "\"file\" is no folder. Type the path of a folder.");
  }
  EXPECT_TRUE(files.CheckTarget(folder / "link/a").Reason.starts_with("\"link\" is a link"));
  EXPECT_EQ(files.CheckTarget(folder / std::string(256, 'n')).Code, ENAMETOOLONG);
  chmod(folder.Path().c_str(), 0755);
  EXPECT_EQ(InChild([&] {
              BecomeNobody();
              return files.CheckTarget(folder / "a").Code == EACCES &&
                             files.CheckTarget(folder.Path())
                         ? 0
                         : 1;
            }),
            0);
}

TEST(LinuxFileSystem, HoldsTheFolderThatItOpened) {
  const TempFolder folder;
  LinuxFileSystem files;
  ASSERT_TRUE(files.MakeFolder(folder / "sub"));
  EXPECT_EQ(files.MakeFolder(folder / "sub").Code, EEXIST);
  EXPECT_EQ(files.MakeFolder(folder / "missing/sub").Code, ENOENT);
  Put(folder / "sub/file", "12345");
  base::Status status;
  const auto opened = files.OpenFolder(folder / "sub", status);
  ASSERT_NE(opened, nullptr);
  rename((folder / "sub").c_str(), (folder / "moved").c_str());
  ItemAttributes attributes;
  EXPECT_TRUE(opened->ReadAttributes("file", attributes) && attributes.Size == 5);
  EXPECT_EQ(opened->ReadAttributes("../moved/file", attributes).Code, EINVAL);
  std::filesystem::remove_all(folder / "moved");
  EXPECT_EQ(opened->ReadAttributes("file", attributes).Code, ENOENT);
  EXPECT_EQ(opened->Read([](const FolderEntry&) { return true; }).Code, ENOENT);
  Space space;
  EXPECT_TRUE(files.ReadSpace(folder.Path(), space) && space.Free <= space.Total);
  EXPECT_GT(space.Total, 0U);
}

TEST(LinuxFileSystem, MeasuresEachFileOnceAndLinksNever) {
  const TempFolder folder;
  const LinuxFileSystem files;
  for (const char* name : {"a", "a/b", "a/c", "empty"}) mkdir((folder / name).c_str(), 0755);
  Put(folder / "ten", "0123456789");
  Put(folder / "a/b/five", "12345");
  link((folder / "ten").c_str(), (folder / "a/c/ten again").c_str());
  symlink("..", (folder / "a/up").c_str());
  symlink("/usr", (folder / "a/out").c_str());
  mkfifo((folder / "a/fifo").c_str(), 0644);
  const auto measure = [&](const std::string& path, int calls) {
    FolderTotal total;
    EXPECT_TRUE(files.MeasureFolder(
        path, [&](const FolderTotal&) { return --calls > 0; }, total));
    return total;
  };
  FolderTotal total = measure(folder.Path(), 1000);
  EXPECT_EQ(total.Bytes, 15U);
  EXPECT_EQ(total.OnDisk, BytesOnDisk(folder / "ten") + BytesOnDisk(folder / "a/b/five"));
  EXPECT_TRUE(total.Files == 6 && total.Folders == 4 && total.Unreadable == 0);
  CountedFiles counted;
  for (const char* name : {"a", "a/c"}) {
    total = {};
    total.Counted = &counted;
    EXPECT_TRUE(files.MeasureFolder(
        folder / name, [](const FolderTotal&) { return true; }, total));
    EXPECT_EQ(total.RepeatedBytes, std::string(name) == "a" ? 0U : 10U);
  }
  EXPECT_EQ(total.Bytes, 10U);
  chmod((folder / "a/b").c_str(), 0);
  EXPECT_EQ(InChild([&] {
              BecomeNobody();
              total = measure(folder.Path(), 1000);
              return total.Bytes == 10 && total.Unreadable == 1 ? total.Trouble.Code : 0;
            }),
            EACCES);
  for (int number = 0; number < 300; ++number) Put(folder / "a/c/" + std::to_string(number), "");
  EXPECT_LT(measure(folder.Path(), 2).Files, 306U);  // stopped
  EXPECT_EQ(measure(folder.Path(), 1000).Files, 306U);
  FolderTotal none;
  EXPECT_EQ(files.MeasureFolder(folder / "ten", {}, none).Code, ENOTDIR);
}

TEST(LinuxFileSystem, MeasuresOneVolume) {
  if (geteuid() != 0) GTEST_SKIP() << "needs the right to mount";
  const TempFolder folder;
  for (const char* name : {"a", "a/bound", "b"}) mkdir((folder / name).c_str(), 0755);
  Put(folder / "b/file", "12345");
  EXPECT_EQ(InChild([&] {
              if (unshare(CLONE_NEWNS) != 0 ||
                  mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
                  mount((folder / "b").c_str(), (folder / "a/bound").c_str(), nullptr, MS_BIND,
                        nullptr) != 0) {
                return 0;
              }
              FolderTotal total;
              LinuxFileSystem().MeasureFolder(
                  folder / "a", [](auto&) { return true; }, total);
              if (total.Files != 0 || total.Folders != 1 || total.Unreadable != 0) return 1;
              LinuxFileSystem().MeasureFolder(
                  folder / "a/bound", [](auto&) { return true; }, total);
              return total.Bytes == 5 ? 0 : 2;
            }),
            0);
}

TEST(LinuxFileSystem, MeasuresDeeperThanDescriptorsReach) {
  const bool inMemory = access("/dev/shm", W_OK) == 0;  // disks take seconds to remove it
  const TempFolder folder(inMemory ? "/dev/shm/" : testing::TempDir());
  constexpr int depth = 5000;
  Deepen(folder.Path(), std::vector<std::string>(depth, "m"), [](int level) {
    // A folder on either side of the way down, so that every level is come back to.
    for (const char* name : {"a", "m", "z"}) mkdirat(level, name, 0755);
    close(openat(level, "file", O_WRONLY | O_CREAT, 0644));
  });
  FolderTotal total;
  EXPECT_TRUE(LinuxFileSystem().MeasureFolder(
      folder.Path(), [](auto&) { return true; }, total));
  EXPECT_TRUE(total.Files == depth && total.Folders == 3 * depth && total.Unreadable == 0);
  // The cleaning up after tests goes by path and cannot reach so deep.
  EXPECT_EQ(std::system(("rm -r '" + folder.Path() + "/m'").c_str()), 0);
}

TEST(LinuxFileSystem, WorksDeeperThanAPathMayBeLong) {
  const TempFolder folder;
  LinuxFileSystem files;
  const std::vector<std::string> names(26, std::string(250, 'x'));
  Deepen(folder.Path(), names);
  std::string path = folder.Path();
  for (const std::string& name : names) path += "/" + name;
  std::string content;
  ItemAttributes attributes;
  EXPECT_TRUE(files.FolderExists(path) && files.WriteFile(path + "/file", "deep"));
  EXPECT_EQ(Read(path).size(), 1U);
  EXPECT_TRUE(files.ReadFile(path + "//file", content) && content == "deep");
  EXPECT_TRUE(files.ReadAttributes(path, "file", attributes) && attributes.Size == 4);
  EXPECT_TRUE(files.RemoveFile(path + "/file") && !files.Exists(path + "/file"));
  EXPECT_EQ(files.WriteFile(folder / std::string(5000, 'x'), "").Code, ENAMETOOLONG);
}

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
