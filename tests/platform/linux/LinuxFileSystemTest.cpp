#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include "TempFolder.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/ReplaceFile.h"
#include "platform/linux/system/LinuxTermination.h"

namespace tarnwell::platform {
namespace {

std::map<std::string, FolderEntry> Read(const std::string& folder) {
  std::map<std::string, FolderEntry> entries;
  const base::Status status = LinuxFileSystem().ReadFolder(folder, [&](const FolderEntry& entry) {
    entries[std::string(entry.Name)] = entry;
    return true;
  });
  EXPECT_TRUE(status) << status.Reason;
  return entries;
}

TEST(LinuxFileSystem, ReadsAndWritesNamesOfAnyBytes) {
  const TempFolder folder;
  LinuxFileSystem files;
  const std::string names[] = {"line\nbreak", "quote\"'", "\xff\xfe", ".dot", " ", "\t\\:*?<>|"};
  for (const std::string& name : names) {
    ASSERT_TRUE(files.WriteFile(folder / name, "content of " + name)) << name;
  }
  const auto entries = Read(folder.Path());
  EXPECT_EQ(entries.size(), std::size(names));
  for (const std::string& name : names) {
    ASSERT_TRUE(entries.contains(name));
    std::string content;
    ItemAttributes attributes;
    EXPECT_TRUE(files.ReadFile(folder / name, content) && content == "content of " + name);
    EXPECT_TRUE(files.ReadAttributes(folder.Path(), name, attributes));
    EXPECT_TRUE(attributes.IsHidden == (name == ".dot") &&
                entries.at(name).IsHidden == attributes.IsHidden);
  }
}

TEST(LinuxFileSystem, TellsKindsAndFollowsLinks) {
  const TempFolder folder;
  const LinuxFileSystem files;
  Put(folder / "file", "12345", 0640);
  folder.Make({"sub/", "fifo|", "to file->file", "to sub->sub", "dangling->nowhere", "loop->loop"});
  const timespec times[2] = {{-1, 500'000'000}, {1'000'000'000, 7}};
  utimensat(AT_FDCWD, (folder / "file").c_str(), times, 0);

  struct Case {
    const char* Name;
    ItemKind Kind;  // of what it leads to
    bool IsLink;
    const char* Target = "";
  };
  const auto entries = Read(folder.Path());
  for (const Case& each :
       {Case{"file", ItemKind::File, false}, Case{"sub", ItemKind::Folder, false},
        Case{"fifo", ItemKind::Other, false}, Case{"to file", ItemKind::File, true, "file"},
        Case{"to sub", ItemKind::Folder, true, "sub"},
        Case{"dangling", ItemKind::Other, true, "nowhere"},
        Case{"loop", ItemKind::Other, true, "loop"}}) {
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
    EXPECT_EQ(attributes.IsBroken, each.IsLink && each.Kind == ItemKind::Other);
    EXPECT_EQ(files.ReadLink(folder / each.Name), each.Target);
    EXPECT_TRUE(files.Exists(folder / each.Name));
    EXPECT_EQ(files.FolderExists(folder / each.Name), each.Kind == ItemKind::Folder);
  }
  ItemAttributes attributes;
  ASSERT_TRUE(files.ReadAttributes(folder.Path(), "to file", attributes));
  EXPECT_EQ(attributes.Size, 5U);
  EXPECT_EQ(attributes.Mode, 0640U);
  EXPECT_EQ(attributes.Accessed, -500'000'000);
  EXPECT_EQ(attributes.Modified, 1'000'000'000'000'000'007);
}

TEST(LinuxFileSystem, ReadsAndRemovesFilesAlone) {
  const TempFolder folder;
  folder.Make({"fifo|", "sub/", "link->sub"});
  LinuxFileSystem files;
  std::string content = "old";
  InChild([&] {  // which ends also where reading never would
    EXPECT_FALSE(files.ReadFile(folder / "fifo", content));
    EXPECT_FALSE(files.ReadFile("/dev/zero", content));
    EXPECT_EQ(files.ReadFile(folder / "sub", content).Code, EISDIR);
    EXPECT_EQ(content, "old");
  });
  EXPECT_TRUE(files.ReadFile("/proc/self/status", content));  // states a size of 0
  EXPECT_NE(content.find("VmPeak"), std::string::npos);

  EXPECT_FALSE(files.RemoveFile(folder / "sub"));
  EXPECT_TRUE(files.RemoveFile(folder / "link"));
  EXPECT_EQ(folder.Names(), "fifo sub ");
}

TEST(LinuxFileSystem, KeepsNotes) {
  const TempFolder folder;
  LinuxFileSystem files;
  const std::string odd = "\xff\n" + std::string(253, 'x'), longText(1000, 'c');
  folder.Make({odd + "=", "sub/", "fifo|", "link->" + odd, "dangling->nowhere", "loop->loop"});
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
  folder.Make({"link->nowhere"});
  EXPECT_TRUE(files.CheckTarget("/"));
  EXPECT_TRUE(files.CheckTarget(folder / "link/a").Reason.starts_with("\"link\" is a link"));
  EXPECT_EQ(files.CheckTarget(folder / std::string(256, 'n')).Code, ENAMETOOLONG);
  chmod(folder.Path().c_str(), 0755);
  InChild([&] {
    BecomeNobody();
    EXPECT_EQ(files.CheckTarget(folder / "a").Code, EACCES);
    EXPECT_TRUE(files.CheckTarget(folder.Path()));
  });
}

TEST(LinuxFileSystem, HoldsTheFolderThatItOpened) {
  const TempFolder folder;
  LinuxFileSystem files;
  folder.Make({"sub/file=12345"});
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
}

TEST(LinuxFileSystem, MeasuresNoLinks) {
  const TempFolder folder;
  const LinuxFileSystem files;
  folder.Make(
      {"ten=0123456789", "a/b/five=12345", "a/c/", "a/up->..", "a/out->/usr", "a/fifo|", "empty/"});
  link((folder / "ten").c_str(), (folder / "a/c/ten again").c_str());
  const auto measure = [&] {
    FolderTotal total;
    EXPECT_TRUE(files.MeasureFolder(
        folder.Path(), [](const FolderTotal&) { return true; }, total));
    return total;
  };
  FolderTotal total = measure();
  EXPECT_EQ(total.Bytes, 15U);
  const auto blocks = StatOf(folder / "ten").st_blocks + StatOf(folder / "a/b/five").st_blocks;
  EXPECT_EQ(total.OnDisk, 512U * static_cast<unsigned>(blocks));
  EXPECT_TRUE(total.Files == 6 && total.Folders == 4 && total.Unreadable == 0);
  chmod((folder / "a/b").c_str(), 0);
  InChild([&] {
    BecomeNobody();
    total = measure();
    EXPECT_TRUE(total.Bytes == 10 && total.Unreadable == 1 && total.Trouble.Code == EACCES);
  });
  for (int number = 0; number < 640; ++number) {
    mkdir((folder / "empty/" + std::to_string(number)).c_str(), 0755);
  }
  int asked = 0;
  FolderTotal none;
  EXPECT_TRUE(files.MeasureFolder(
      folder / "empty", [&](const FolderTotal&) { return ++asked > 0; }, none));
  EXPECT_EQ(asked, 20);  // once for 64 of the items, and of the looks into them
  EXPECT_EQ(files.MeasureFolder(folder / "ten", {}, none).Code, ENOTDIR);
}

// So many folders that several threads share them.
TEST(LinuxFileSystem, MeasuresLargeTreesAsOne) {
  const TempFolder folder;
  constexpr int folders = 120, files = 30;
  std::string path = folder.Path();
  for (int number = 0; number < folders; ++number) {
    path = (number % 8 == 0 ? folder.Path() : path) + "/" + std::to_string(number);
    mkdir(path.c_str(), 0755);
    for (int file = 0; file < files; ++file) Put(path + "/f" + std::to_string(file), "12");
    link((folder / "0/f0").c_str(), (path + "/twin").c_str());
  }
  FolderTotal total;
  for (int run = 0; run < 20; ++run) {
    CountedFiles counted;
    counted.Add({StatOf(folder / "0/f0").st_dev, StatOf(folder / "0/f0").st_ino});
    total = {};
    total.Counted = run % 2 == 0 ? nullptr : &counted;
    EXPECT_TRUE(LinuxFileSystem().MeasureFolder(
        folder.Path(), [](const FolderTotal&) { return true; }, total));
    EXPECT_TRUE(total.Folders == folders && total.Files == folders * (files + 1)) << total.Files;
    EXPECT_EQ(total.Bytes, 2U * folders * files);
    EXPECT_TRUE(total.Unreadable == 0 && total.RepeatedBytes <= 2);
  }
  std::uint64_t seen = 0;
  total = {};
  const auto goOn = [&](const FolderTotal& soFar) {
    EXPECT_GE(soFar.Files, std::exchange(seen, soFar.Files));
    return seen < 2000;
  };
  EXPECT_TRUE(LinuxFileSystem().MeasureFolder(folder.Path(), goOn, total));
  EXPECT_TRUE(total.Files >= 2000 && total.Files < folders * (files + 1)) << total.Files;
}

TEST(LinuxFileSystem, MeasuresOneVolume) {
  const TempFolder folder;
  folder.Make({"a/bound/", "b/file=12345"});
  InChild([&] {
    if (unshare(CLONE_NEWNS) != 0 || mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount((folder / "b").c_str(), (folder / "a/bound").c_str(), nullptr, MS_BIND, nullptr) !=
            0) {
      _exit(LacksRight);
    }
    const auto goOn = [](const FolderTotal&) { return true; };
    FolderTotal total;
    LinuxFileSystem().MeasureFolder(folder / "a", goOn, total);
    EXPECT_TRUE(total.Files == 0 && total.Folders == 1 && total.Unreadable == 0);
    LinuxFileSystem().MeasureFolder(folder / "a/bound", goOn, total);
    EXPECT_EQ(total.Bytes, 5U);
  });
}

TEST(LinuxFileSystem, WorksDeeperThanAPathMayBeLong) {
  const TempFolder folder;
  LinuxFileSystem files;
  const std::string name(250, 'x');
  Deepen(folder.Path(), 26, name);
  std::string path = folder.Path();
  for (int level = 0; level < 26; ++level) path += "/" + name;
  std::string content;
  ItemAttributes attributes;
  EXPECT_TRUE(files.FolderExists(path) && files.WriteFile(path + "/file", "deep"));
  EXPECT_EQ(Read(path).size(), 1U);
  EXPECT_TRUE(files.ReadFile(path + "//file", content) && content == "deep");
  EXPECT_TRUE(files.ReadAttributes(path, "file", attributes) && attributes.Size == 4);
  EXPECT_TRUE(files.RemoveFile(path + "/file") && !files.Exists(path + "/file"));
  EXPECT_EQ(files.WriteFile(folder / std::string(5000, 'x'), "").Code, ENAMETOOLONG);
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
  // A link leads from the folder that holds it.
  folder.Make({"fifo|", "sub/file=old", "first->sub/second", "sub/second->file", "loop->loop",
               "dangling->" + folder / "made", "lost->no folder/file"});
  EXPECT_TRUE(ReplaceFile(folder / "first", "new") && ReplaceFile(folder / "dangling", "made"));
  EXPECT_EQ(Get(folder / "sub/file") + Get(folder / "made"), "newmade");
  EXPECT_EQ(ReplaceFile(folder / "loop", "").Code, ELOOP);
  EXPECT_EQ(ReplaceFile(folder / "sub", "x").Code, EISDIR);
  EXPECT_EQ(ReplaceFile(folder / "sub/", "x").Code, EISDIR);
  for (const std::string& path : {folder / "lost", std::string(), folder / "missing/file"}) {
    EXPECT_EQ(ReplaceFile(path, "x").Code, ENOENT);
  }
  InChild([&] { EXPECT_FALSE(ReplaceFile(folder / "fifo", "x")); });
  EXPECT_TRUE(S_ISFIFO(StatOf(folder / "fifo").st_mode));
  for (const char* link : {"first", "sub/second", "dangling", "loop", "lost"}) {
    EXPECT_TRUE(S_ISLNK(StatOf(folder / link).st_mode)) << link;
  }
  EXPECT_EQ(folder.Names(), "dangling fifo first loop lost made sub ");
}

TEST(ReplaceFile, KeepsTheOldContentOnFailure) {
  const TempFolder folder;
  folder.Make({"file=old", "read-only=old", "shut/file=old"});
  chmod((folder / "read-only").c_str(), 0444);
  for (const char* name : {"file", "shut/file"}) chmod((folder / name).c_str(), 0666);
  InChild([&] {
    BecomeNobody();
    EXPECT_EQ(ReplaceFile(folder / "read-only", "new").Code, EACCES);
    if (geteuid() == getuid()) chmod((folder / "shut").c_str(), 0555);
    EXPECT_EQ(ReplaceFile(folder / "shut/file", "new").Code, EACCES);
    if (geteuid() == getuid()) chmod((folder / "shut").c_str(), 0755);
  });
  // A limit on the size of files fails in the middle of the writing, as a full disk does.
  InChild([&] {
    OutliveFailedWrites();
    const rlimit limit{100'000, 100'000};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_EQ(ReplaceFile(folder / "file", std::string(200'000, 'x')).Code, EFBIG);
  });
  for (const char* name : {"file", "read-only", "shut/file"}) EXPECT_EQ(Get(folder / name), "old");
  EXPECT_EQ(folder.Names(), "file read-only shut ");
}

TEST(ReplaceFile, GivesAnotherGroupNoMoreThanEverybodyHad) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a file of another user";
  const TempFolder folder;
  Put(folder / "file", "old", 0666);
  ASSERT_EQ(chown((folder / "file").c_str(), 1234, 5678), 0);
  ASSERT_EQ(chmod((folder / "file").c_str(), 0662), 0);
  InChild([&] {
    BecomeNobody();
    EXPECT_TRUE(ReplaceFile(folder / "file", "new"));
  });
  EXPECT_EQ(Get(folder / "file"), "new");
  EXPECT_EQ(StatOf(folder / "file").st_mode & 07777, 0622U);
}

}  // namespace
}  // namespace tarnwell::platform
