#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>

#include "TempFolder.h"
#include "platform/linux/LinuxFileSystem.h"

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

TEST(LinuxFileSystem, WorksDeeperThanAPathMayBeLong) {
  const TempFolder folder;
  LinuxFileSystem files;
  std::string path = folder.Path();
  int descriptor = open(path.c_str(), O_PATH | O_DIRECTORY);
  for (const char letter : std::string("abcdefghijklmnopqrstuvwxyz")) {
    const std::string name(250, letter);
    ASSERT_EQ(mkdirat(descriptor, name.c_str(), 0755), 0);
    const int next = openat(descriptor, name.c_str(), O_PATH | O_DIRECTORY);
    close(descriptor);
    descriptor = next;
    path += "/" + name;
  }
  close(descriptor);

  std::string content;
  ItemAttributes attributes;
  EXPECT_TRUE(files.FolderExists(path) && files.WriteFile(path + "/file", "deep"));
  EXPECT_EQ(Read(path).size(), 1U);
  EXPECT_TRUE(files.ReadFile(path + "//file", content) && content == "deep");
  EXPECT_TRUE(files.ReadAttributes(path, "file", attributes) && attributes.Size == 4);
  EXPECT_TRUE(files.RemoveFile(path + "/file") && !files.Exists(path + "/file"));
  EXPECT_EQ(files.WriteFile(folder / std::string(5000, 'x'), "").Code, ENAMETOOLONG);
}

}  // namespace
}  // namespace tarnwell::platform
