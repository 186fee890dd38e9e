#include <gtest/gtest.h>

#include "base/PathSyntax.h"

namespace tarnwell::base {
namespace {

const PathSyntax& posix = PathSyntax::Posix();
const PathSyntax& windows = PathSyntax::Windows();

TEST(PathSyntaxTest, KnowsRootsAndNetworkPaths) {
  EXPECT_TRUE(posix.IsDriveRoot("/"));
  EXPECT_FALSE(posix.IsDriveRoot("/a/"));
  EXPECT_FALSE(posix.IsDriveRoot("/odd:\\"));
  EXPECT_TRUE(windows.IsDriveRoot("C:\\"));
  EXPECT_FALSE(windows.IsDriveRoot("C:"));
  EXPECT_EQ(windows.DriveRoot("C"), "C:\\");
  EXPECT_EQ(posix.DriveRoot("/media/disk"), "/media/disk");
  EXPECT_EQ(windows.FindNetworkStart("x\\\\server\\share"), 1u);
  EXPECT_EQ(posix.FindNetworkStart("//a"), std::string_view::npos);
}

TEST(PathSyntaxTest, TakesPathsApartAndPutsThemTogether) {
  EXPECT_EQ(posix.AddSeparator("/a"), "/a/");
  EXPECT_EQ(posix.AddSeparator("/"), "/");
  EXPECT_EQ(windows.RemoveRightSlash("C:\\"), "C:");
  EXPECT_EQ(windows.RemoveRightSlash(""), "");
  EXPECT_EQ(windows.GetFolderPath("C:\\a\\b"), "C:\\a\\");
  EXPECT_EQ(windows.GetFolderPath("C:a"), "");
  EXPECT_EQ(posix.LastComponent("/a/b/"), "b");
  EXPECT_EQ(posix.LastComponent("b"), "b");
  EXPECT_EQ(posix.LastComponent("/"), "");
  EXPECT_EQ(posix.Join("/", "a"), "/a");
  EXPECT_EQ(posix.Join("/a", "b"), "/a/b");
  EXPECT_EQ(posix.Join("", "b"), "b");
}

TEST(PathSyntaxTest, ParentStopsAtTheTop) {
  struct {
    const PathSyntax& Syntax;
    const char* Path;
    const char* Parent;
  } const cases[] = {
      {posix, "/a/b/", "/a"},
      {posix, "/a", "/"},
      {posix, "/", "/"},
      {posix, "//a", "/"},
      {posix, "/a/..", "/a"},
      {posix, "a", ""},
      {posix, "/a//b", "/a"},
      {posix, "", ""},
      {windows, "C:\\a\\b", "C:\\a"},
      {windows, "C:\\a\\", "C:\\"},
      {windows, "C:\\", "C:\\"},
      {windows, "\\a", "\\"},
      {windows, "\\\\s\\a", "\\\\s"},
      {windows, "\\\\s", "\\\\s"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(each.Syntax.ParentOf(each.Path), each.Parent) << each.Path;
  }
}

TEST(PathSyntaxTest, ComparesByTheRuleOfThePlatform) {
  EXPECT_TRUE(posix.Same("/a/", "/a"));
  EXPECT_FALSE(posix.Same("/a", "/A"));
  EXPECT_FALSE(posix.Same("/", ""));
  EXPECT_TRUE(windows.Same("c:\\Dir", "C:\\DIR\\"));
  EXPECT_TRUE(posix.IsWithin("/a/b", "/a/"));
  EXPECT_TRUE(posix.IsWithin("/a", "/a"));
  EXPECT_TRUE(posix.IsWithin("/a", "/"));
  EXPECT_FALSE(posix.IsWithin("/ab", "/a"));
  EXPECT_FALSE(posix.IsWithin("/a", ""));
  EXPECT_TRUE(windows.IsWithin("c:\\A\\b", "C:\\a"));
  EXPECT_TRUE(windows.IsWithin("c:\\A", "C:\\"));
}

}  // namespace
}  // namespace tarnwell::base
