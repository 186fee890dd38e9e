#include "TempFolder.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/files/LinkTarget.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/files/SystemPath.h"
#include "platform/win32/files/WindowsFileSystem.h"

namespace tarnwell::platform {
namespace {

// Makes what only calls with the prefix for long paths can.
void MakeOdd(const std::string& path) {
  Put(path, "odd");
  ASSERT_NE(GetFileAttributesW(LongPath(path).c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(WindowsFileSystem, MakesNoNameThatOthersCannotOpen) {
  const TempFolder folder;
  WindowsFileSystem files;
  folder.Make({"file=content"});
  for (const char* name : {"CON", "nul.txt", "com1", "dot.", "blank ", "a:b", "file:stream", "a*",
                           "what?", "<x>", "\"x\"", "a|b", "tab\tx"}) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(files.MakeFolder(folder / name).Reason.starts_with("Windows takes no such name."));
    EXPECT_EQ(files.Rename(folder / "file", folder / name).Code, ERROR_INVALID_NAME);
    EXPECT_EQ(files.WriteFile(folder / name, "x").Code, ERROR_INVALID_NAME);
    EXPECT_FALSE(files.CheckTarget(folder / name));
  }
  EXPECT_EQ(folder.Names(), "file ");
  EXPECT_EQ(Get(folder / "file"), "content");
}

TEST(WindowsFileSystem, ReachesSuchNamesWhereTheyAre) {
  const TempFolder folder;
  WindowsFileSystem files;
  for (const char* name : {"CON", "dot.", "blank "}) MakeOdd(folder / name);
  for (const std::string name : {"CON", "dot.", "blank "}) {
    SCOPED_TRACE(name);
    std::string content;
    ItemAttributes attributes;
    EXPECT_TRUE(files.ReadFile(folder / name, content) && content == "odd");
    EXPECT_TRUE(files.ReadAttributes(folder.Path(), name, attributes) && attributes.Size == 3);
    EXPECT_TRUE(files.WriteFile(folder / name, "new"));
    EXPECT_TRUE(files.Rename(folder / name, folder / ("good-" + name + "x")));
  }
  EXPECT_EQ(folder.Names(), "good-CONx good-blank x good-dot.x ");
  for (const char* pattern : {"good*", "good-CON?", "good-CONx:tarnwell.color"}) {
    EXPECT_FALSE(files.Exists(folder / pattern)) << pattern;
    EXPECT_FALSE(files.RemoveFile(folder / pattern)) << pattern;
  }
}

TEST(WindowsFileSystem, LeavesWhatIsHeldOrReadOnly) {
  const TempFolder folder;
  WindowsFileSystem files;
  folder.Make({"held=old", "read=old", "sub/held=old"});
  SetFileAttributesW(LongPath(folder / "read").c_str(), FILE_ATTRIBUTE_READONLY);
  const auto hold = [&](const std::string& path) {
    return Handle(CreateFileW(LongPath(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr));
  };
  const Handle held = hold(folder / "held"), inner = hold(folder / "sub/held");
  ASSERT_TRUE(held && inner);
  std::string content = "as it was";
  ItemAttributes attributes;
  EXPECT_EQ(files.ReadFile(folder / "held", content).Code, ERROR_SHARING_VIOLATION);
  EXPECT_EQ(files.WriteFile(folder / "held", "new").Code, ERROR_SHARING_VIOLATION);
  EXPECT_EQ(files.RemoveFile(folder / "held").Code, ERROR_SHARING_VIOLATION);
  EXPECT_TRUE(files.Rename(folder / "held", folder / "x").Reason.starts_with("Another program"));
  EXPECT_TRUE(files.ReadAttributes(folder.Path(), "held", attributes) && attributes.Size == 3);
  EXPECT_EQ(files.WriteFile(folder / "read", "new").Reason, "The file is set read-only");
  EXPECT_EQ(content + Get(folder / "read"), "as it wasold");
  EXPECT_EQ(folder.Names(), "held read sub ");
}

TEST(WindowsFileSystem, TellsAndKeepsTheMarksOfItems) {
  const TempFolder folder;
  WindowsFileSystem files;
  folder.Make({"file=old", "hidden/"});
  SetFileAttributesW(LongPath(folder / "file").c_str(),
                     FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  SetFileAttributesW(LongPath(folder / "hidden").c_str(),
                     FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(files.WriteFile(folder / "file", "new content"));
  int found = 0;
  EXPECT_TRUE(files.ReadFolder(folder.Path(), [&](const FolderEntry& entry) {
    const bool isFolder = entry.Kind == ItemKind::Folder;
    EXPECT_TRUE(entry.IsHidden && entry.IsSystem != isFolder && entry.Attributes->IsHidden);
    EXPECT_EQ(entry.Attributes->Mode, isFolder ? 0777U : 0666U);
    return ++found > 0;
  }));
  EXPECT_EQ(found, 2);
}

TEST(WindowsFileSystem, RenamesNothingThatTheSystemOrTheProgramNeeds) {
  const TempFolder folder;
  folder.Make({"program/file="});
  WindowsFileSystem files;
  files.ProtectProgram(folder / "program");
  EXPECT_NE(files.Rename(folder / "program", folder / "x").Reason, "");
  EXPECT_TRUE(files.Rename(folder / "program/file", folder / "x"));
  EXPECT_EQ(folder.Names(), "program x ");
}

TEST(WindowsFileSystem, LetsGoOfWhatItHasOpenItselfToRename) {
  const TempFolder folder;
  folder.Make({"top/"});
  Handle held(CreateFileW(LongPath(folder / "top").c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ,
                          nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  WindowsFileSystem files;
  files.LetGoBy([](const std::string&) { return nullptr; });
  EXPECT_FALSE(files.Rename(folder / "top", folder / "new"));
  files.LetGoBy([&](const std::string& path) {
    EXPECT_EQ(path, folder / "top");
    held = {};
    return std::make_shared<int>();
  });
  EXPECT_TRUE(files.Rename(folder / "top", folder / "new"));
  EXPECT_EQ(folder.Names(), "new ");
}

TEST(WindowsFileSystem, TellsOfDrivesAndSharesThatAreGone) {
  WindowsFileSystem files;
  EXPECT_EQ(SystemPath("Q:").Wide(), LR"(\\?\Q:\)");
  EXPECT_FALSE(files.Exists("C:windows"));
  for (const std::string& longest : {std::string(256, 'n'), std::string(256, 'n') + "\\x"}) {
    EXPECT_EQ(SystemPath("C:\\" + longest).Error(), ERROR_FILENAME_EXCED_RANGE);
    EXPECT_EQ(SystemPath("C:\\" + longest.substr(1)).Error(), ERROR_SUCCESS);
  }
  for (const std::string path : {R"(Q:\)", R"(Q:\folder)", R"(\\nowhere.invalid\share)"}) {
    SCOPED_TRACE(path);
    base::Status status;
    EXPECT_TRUE(files.OpenFolder(path, status) == nullptr && !status.Reason.empty());
    EXPECT_FALSE(files.Exists(path) || files.FolderExists(path));
    EXPECT_TRUE(files.CheckTarget(path).Reason.starts_with(
        path.starts_with('Q') ? "The drive is not there" : "The computer or the share"));
    EXPECT_FALSE(files.MakeFolder(path + R"(\x)"));
    EXPECT_FALSE(files.WriteFile(path + R"(\x)", "x"));
    Space space;
    EXPECT_FALSE(files.ReadSpace(path, space));
  }
}

std::string ReparsePoint(DWORD tag, std::wstring target, const std::wstring& shown) {
  const auto size = [](const std::wstring& text) {
    return static_cast<std::uint16_t>(text.size() * sizeof(wchar_t));
  };
  const std::uint16_t numbers[] = {0, size(target), size(target), size(shown)};
  std::string bytes(reinterpret_cast<const char*>(&tag), sizeof tag);
  bytes.append(4, '\0').append(reinterpret_cast<const char*>(numbers), sizeof numbers);
  if (tag == IO_REPARSE_TAG_SYMLINK) bytes.append(4, '\1');
  target += shown;
  return bytes.append(reinterpret_cast<const char*>(target.data()), size(target));
}

TEST(LinkTarget, IsWhatPeopleWrite) {
  const std::wstring kernel = LR"(\??\C:\a\b)";
  EXPECT_EQ(LinkTargetFrom(ReparsePoint(IO_REPARSE_TAG_SYMLINK, kernel, LR"(..\b)")), R"(..\b)");
  EXPECT_EQ(LinkTargetFrom(ReparsePoint(IO_REPARSE_TAG_MOUNT_POINT, kernel, L"")), R"(C:\a\b)");
  EXPECT_EQ(LinkTargetFrom(ReparsePoint(IO_REPARSE_TAG_SYMLINK, LR"(\??\UNC\s\x)", L"")),
            R"(\\s\x)");
  EXPECT_TRUE(IsVolumeTarget(
      LinkTargetFrom(ReparsePoint(IO_REPARSE_TAG_MOUNT_POINT, LR"(\??\Volume{1-2}\)", L""))));
  EXPECT_EQ(LinkTargetFrom(ReparsePoint(0x9000001A, kernel, L"x")), "");  // of a cloud
  const std::string whole = ReparsePoint(IO_REPARSE_TAG_SYMLINK, kernel, L"shown");
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(LinkTargetFrom(whole.substr(0, length)), "") << length;
  }
}

TEST(LinkTarget, IsTakenFromWhereTheLinkIs) {
  EXPECT_EQ(LinkedPath(R"(C:\a\link)", R"(..\b)"), R"(C:\a\..\b)");
  EXPECT_EQ(LinkedPath(R"(C:\a\link)", R"(\b)"), R"(C:\b)");
  EXPECT_EQ(LinkedPath(R"(\\server\share\a\link)", R"(\b)"), R"(\\server\share\b)");
  EXPECT_EQ(LinkedPath(R"(\\server\share\link)", "b"), R"(\\server\share\b)");
  EXPECT_EQ(LinkedPath(R"(C:\link)", R"(\\server\share\b)"), R"(\\server\share\b)");
}

TEST(NamingError, SaysWhatToDo) {
  EXPECT_TRUE(NamingError(ERROR_SUCCESS));
  EXPECT_EQ(NamingError(ERROR_DISK_FULL).Reason,
            "The drive is full. Delete something on it, then try again.");
  EXPECT_EQ(NamingError(ERROR_BAD_NETPATH).Reason, NamingError(ERROR_NETNAME_DELETED).Reason);
  EXPECT_EQ(NamingError(ERROR_CRC).Code, ERROR_CRC);
}

}  // namespace
}  // namespace tarnwell::platform
