#include "Test.h"
#include "base/PathSyntax.h"

namespace tarnwell::base {
namespace {

const PathSyntax& posix = PathSyntax::Posix();
const PathSyntax& windows = PathSyntax::Windows();

TEST(PathSyntaxTest, TakesPathsApartAndPutsThemTogether) {
  EXPECT_TRUE(posix.IsDriveRoot("/") && windows.IsDriveRoot("C:\\"));
  EXPECT_FALSE(posix.IsDriveRoot("/odd:\\") || windows.IsDriveRoot("C:"));
  EXPECT_EQ(windows.DriveRoot("C") + posix.DriveRoot("/media/disk"), "C:\\/media/disk");
  EXPECT_EQ(windows.DriveRoot("\\\\nas\\photos"), "\\\\nas\\photos");
  EXPECT_EQ(windows.FindNetworkStart("x\\\\server\\share"), 1u);
  EXPECT_EQ(posix.FindNetworkStart("//a"), std::string_view::npos);
  EXPECT_EQ(posix.AddSeparator("/a") + posix.AddSeparator("/"), "/a//");
  EXPECT_EQ(windows.RemoveRightSlash("C:\\") + windows.RemoveRightSlash(""), "C:");
  EXPECT_EQ(windows.GetFolderPath("C:\\a\\b") + windows.GetFolderPath("C:a"), "C:\\a\\");
  EXPECT_EQ(posix.LastComponent("/a/b/"), "b");
  EXPECT_EQ(posix.Join("/", "a") + posix.Join("/a", "b") + posix.Join("", "b"), "/a/a/bb");
}

TEST(PathSyntaxTest, NamesFollowTheRuleOfThePlatform) {
  for (const char* name : {"", ".", "..", "a/b"}) EXPECT_FALSE(posix.IsName(name)) << name;
  for (const char* name : {"\\:*?\"<>|\n\xFF", "a. ", "NUL"})
    EXPECT_TRUE(posix.IsName(name)) << name;
  for (const char* name : {"..", "a\\b", "a/b", "c:b", "a|", "a\x1F", "a.", "a ", "nul", "Con .b.c",
                           "com1", "LPT9.txt", "com\u00b2"}) {
    EXPECT_FALSE(windows.IsName(name)) << name;
  }
  for (const char* name : {".a b", "com", "com0", "com10", "null", "a.nul", "\xFF\u00e4"}) {
    EXPECT_TRUE(windows.IsName(name)) << name;
  }
  EXPECT_FALSE(posix.IsName({"a\0b", 3}));
}

TEST(PathSyntaxTest, ValidPathBeginsAtItsServerAndHasMoreThanThat) {
  const char* const cases[][2] = {{"*|C:\\a\\", "*|C:\\a\\"},
                                  {"*|\\\\s\\a", "\\\\s\\a"},
                                  {"\\\\s\\\\b", "\\\\s\\\\b"},
                                  {"\\\\s", ""},
                                  {"*|\\\\s\\", ""}};
  for (const auto& [path, valid] : cases) EXPECT_EQ(windows.ValidatePath(path), valid) << path;
  EXPECT_EQ(posix.ValidatePath("//s/") + posix.ValidatePath("\\\\s"), "//s/\\\\s");
}

TEST(PathSyntaxTest, ParentStopsAtTheTop) {
  const char* const cases[][2] = {{"/a/b/", "/a"},       {"/a", "/"},       {"/", "/"},
                                  {"//a", "/"},          {"/a/..", "/a"},   {"a", ""},
                                  {"/a//b", "/a"},       {"", ""},          {"C:\\a\\b", "C:\\a"},
                                  {"C:\\a\\", "C:\\"},   {"C:\\", "C:\\"},  {"\\a", "\\"},
                                  {"\\\\s\\a", "\\\\s"}, {"\\\\s", "\\\\s"}};
  for (const auto& [path, parent] : cases) {
    const bool isWindows = std::string_view(path).find('\\') != std::string_view::npos;
    EXPECT_EQ((isWindows ? windows : posix).ParentOf(path), parent) << path;
  }
}

TEST(PathSyntaxTest, ComparesByTheRuleOfThePlatform) {
  EXPECT_TRUE(posix.Same("/a/", "/a") && windows.Same("c:\\Dir", "C:\\DIR\\"));
  EXPECT_FALSE(posix.Same("/a", "/A") || posix.Same("/", ""));
  EXPECT_TRUE(posix.IsWithin("/a/b", "/a/") && posix.IsWithin("/a", "/a") &&
              posix.IsWithin("/a", "/"));
  EXPECT_FALSE(posix.IsWithin("/ab", "/a") || posix.IsWithin("/a", ""));
  EXPECT_TRUE(windows.IsWithin("c:\\A\\b", "C:\\a") &&
              windows.IsWithin("c:\\b\u00e4r", "C:\\B\u00c4R"));
  EXPECT_FALSE(windows.Same("\u0131", "i"));  // without its dot
}

}  // namespace
}  // namespace tarnwell::base
