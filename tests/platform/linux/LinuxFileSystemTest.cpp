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
    entries[entry.Name] = entry;
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
    const base::Status status = files.WriteFile(folder / name, "content of " + name);
    ASSERT_TRUE(status) << status.Reason;
  }
  const auto entries = Read(folder.Path());
  EXPECT_EQ(entries.size(), std::size(names));
  for (const std::string& name : names) {
    ASSERT_TRUE(entries.contains(name));
    EXPECT_EQ(entries.at(name).IsHidden, name == ".dot");
    std::string content;
    EXPECT_TRUE(files.ReadFile(folder / name, content));
    EXPECT_EQ(content, "content of " + name);
    ItemAttributes attributes;
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
    ItemKind Listed, Followed;
    bool IsLink;
  };
  const Case cases[] = {{"file", ItemKind::File, ItemKind::File, false},
                        {"sub", ItemKind::Folder, ItemKind::Folder, false},
                        {"fifo", ItemKind::Other, ItemKind::Other, false},
                        {"to file", ItemKind::Unknown, ItemKind::File, true},
                        {"to sub", ItemKind::Unknown, ItemKind::Folder, true},
                        {"dangling", ItemKind::Unknown, ItemKind::Other, true},
                        {"loop", ItemKind::Unknown, ItemKind::Other, true}};
  const auto entries = Read(folder.Path());
  for (const Case& each : cases) {
    SCOPED_TRACE(each.Name);
    ASSERT_TRUE(entries.contains(each.Name));
    const FolderEntry& entry = entries.at(each.Name);
    // A file system may leave the kind open until the item is looked at.
    EXPECT_TRUE(entry.Kind == each.Listed || (entry.Kind == ItemKind::Unknown && !entry.IsLink));
    ItemAttributes attributes;
    EXPECT_TRUE(files.ReadAttributes(folder.Path(), each.Name, attributes));
    EXPECT_EQ(attributes.Kind, each.Followed);
    EXPECT_EQ(attributes.IsLink, each.IsLink);
    EXPECT_TRUE(files.Exists(folder / each.Name));
    EXPECT_EQ(files.FolderExists(folder / each.Name), each.Followed == ItemKind::Folder);
  }
  ItemAttributes attributes;
  ASSERT_TRUE(files.ReadAttributes(folder.Path(), "to file", attributes));
  EXPECT_EQ(attributes.Size, 5U);
  EXPECT_EQ(attributes.Mode, 0640U);
  EXPECT_EQ(attributes.Accessed, -500'000'000);
  EXPECT_EQ(attributes.Modified, 1'000'000'000'000'000'007);
  ASSERT_TRUE(files.ReadAttributes(folder.Path(), "", attributes));
  EXPECT_EQ(attributes.Kind, ItemKind::Folder);
  EXPECT_EQ(attributes.Size, 0U);
  EXPECT_EQ(files.ReadAttributes(folder.Path(), "missing", attributes).Code, ENOENT);

  int taken = 0;
  EXPECT_TRUE(files.ReadFolder(folder.Path(), [&](const FolderEntry&) { return ++taken < 3; }));
  EXPECT_EQ(taken, 3);
  const auto none = [](const FolderEntry&) { return true; };
  EXPECT_EQ(files.ReadFolder(folder / "file", none).Code, ENOTDIR);
  EXPECT_FALSE(files.ReadFolder(folder / "missing", none).Reason.empty());
}

TEST(LinuxFileSystem, ReadsAndRemovesFilesAlone) {
  const TempFolder folder;
  mkfifo((folder / "fifo").c_str(), 0644);
  mkdir((folder / "sub").c_str(), 0755);
  EXPECT_EQ(InChild([&] {
              std::string content = "old";
              const LinuxFileSystem files;
              if (files.ReadFile(folder / "fifo", content)) return 1;
              if (files.ReadFile("/dev/zero", content)) return 2;
              if (files.ReadFile(folder / "sub", content).Code != EISDIR) return 3;
              return content == "old" ? 0 : 4;
            }),
            0);
  LinuxFileSystem files;
  std::string content;
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
  for (int depth = 0; depth < 40; ++depth) {
    const std::string name(250, static_cast<char>('a' + depth % 26));
    ASSERT_EQ(mkdirat(descriptor, name.c_str(), 0755), 0);
    const int next = openat(descriptor, name.c_str(), O_PATH | O_DIRECTORY);
    close(descriptor);
    descriptor = next;
    path += "/" + name;
  }
  close(descriptor);

  EXPECT_TRUE(files.FolderExists(path));
  EXPECT_TRUE(files.WriteFile(path + "/file", "deep"));
  EXPECT_EQ(Read(path).size(), 1U);
  std::string content;
  EXPECT_TRUE(files.ReadFile(path + "//file", content));
  EXPECT_EQ(content, "deep");
  ItemAttributes attributes;
  EXPECT_TRUE(files.ReadAttributes(path, "file", attributes));
  EXPECT_EQ(attributes.Size, 4U);
  EXPECT_FALSE(files.Exists(path + "/missing"));
  EXPECT_TRUE(files.RemoveFile(path + "/file"));
  EXPECT_FALSE(files.Exists(path + "/file"));
  EXPECT_EQ(files.WriteFile(folder / std::string(5000, 'x'), "").Code, ENAMETOOLONG);
}

}  // namespace
}  // namespace tarnwell::platform
