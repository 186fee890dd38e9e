#include <sys/socket.h>
#include <sys/un.h>

#include "SearchFixture.h"
#include "fuzz/SearchProperties.h"

namespace tarnwell::platform {
namespace {

using LinuxFileSearchTest = SearchFixture;

TEST_F(LinuxFileSearchTest, TakesOddNamesAndKindsForThemselves) {
  folder_.Make({"a1=x", "sub/deep/a3|", "sub/deep/a4->..", "a\n\xff/a7\xfe/"});
  EXPECT_EQ(Names(NamesWith("a")), "a\n\xff a\n\xff/a7\xfe a1 sub/deep/a3 sub/deep/a4 ");
  SearchRequest request = NamesWith("a");
  request.FindsFolders = request.FindsFiles = false;
  request.Levels = 3;
  EXPECT_EQ(Names(request), "sub/deep/a3 sub/deep/a4 ");
  request = {};
  const timespec old[2] = {{1'000, 5}, {1'000, 5}};
  ASSERT_EQ(utimensat(AT_FDCWD, (folder_ / "sub").c_str(), old, 0), 0);
  request.Modified = {1'000'000'000'005, 1'000'000'000'005};
  EXPECT_EQ(Names(request), "sub ");
}

TEST_F(LinuxFileSearchTest, LooksIntoRegularFilesAlone) {
  folder_.Make({"plain=a Needle b", "fifo|", "link->plain"});
  sockaddr_un place{.sun_family = AF_UNIX, .sun_path = {}};
  (folder_ / "socket").copy(place.sun_path, sizeof place.sun_path - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  bind(socket, reinterpret_cast<const sockaddr*>(&place), sizeof place);
  const SearchTold told = Search({.Folder = {}, .Content = "Needle"});
  EXPECT_EQ(told.Text(), "plain ");
  EXPECT_TRUE(told.Last.Counts.LookedInto == 1 && told.Troubles.empty());
  close(socket);
}

TEST_F(LinuxFileSearchTest, TellsWhatItCannotRead) {
  folder_.Make({"open/x=", "locked/x=", "shut=Needle"});
  InChild([&] {
    chmod((folder_ / "locked").c_str(), 0);
    chmod((folder_ / "shut").c_str(), 0);
    BecomeNobody();
    const SearchTold told = Search({.Folder = {}, .Content = "Needle"});
    EXPECT_EQ(told.Last.Counts.Troubles, 2U);
    std::set<std::string> paths;
    for (const SearchTrouble& trouble : told.Troubles) {
      EXPECT_FALSE(trouble.Reason) << trouble.Path;
      paths.insert(trouble.Path);
    }
    EXPECT_EQ(paths, (std::set{folder_ / "locked", folder_ / "shut"}));
  });
}

TEST_F(LinuxFileSearchTest, GoesDownAsFarAsFoldersDo) {
  constexpr int depth = 5000;
  Deepen(folder_.Path(), depth, "folder",
         [](int folder) { close(openat(folder, "file", O_CREAT | O_WRONLY | O_CLOEXEC, 0600)); });
  const SearchTold told = Search(NamesWith("file"));
  EXPECT_EQ(told.Names.size(), static_cast<std::size_t>(depth));
  EXPECT_EQ(told.Names.count(std::string("folder/folder/file")), 1U);
  EXPECT_TRUE(told.Troubles.empty());
}

TEST_F(LinuxFileSearchTest, StandsATreeThatChanges) {
  for (int folder = 0; folder < 40; ++folder) {
    const std::string name = "stays" + std::to_string(folder);
    folder_.Make({name + "/comes/x/y=Needle", name + "/z=Needle"});
  }
  std::atomic<bool> isDone = false;
  std::thread other([&] {
    for (int turn = 0; !isDone; ++turn) {
      const std::string name = "stays" + std::to_string(turn % 40);
      std::error_code ignored;
      std::filesystem::rename(folder_ / name + "/comes", folder_ / "moved", ignored);
      std::filesystem::remove(folder_ / "moved/x/y", ignored);
      mkfifo((folder_ / "moved/x/y").c_str(), 0600);
      std::filesystem::remove_all(folder_ / "moved", ignored);
      folder_.Make({name + "/comes/x/y=Needle"});
    }
  });
  for (int turn = 0; turn < 30; ++turn) {
    const SearchTold told = Search({.Folder = folder_.Path(), .Content = "Needle"});
    for (int folder = 0; folder < 40; ++folder) {
      EXPECT_EQ(told.Names.count("stays" + std::to_string(folder) + "/z"), 1U);
    }
  }
  isDone = true;
  other.join();
}

// The properties of the fuzz target, over texts of all kinds.
TEST(SearchPropertiesTest, HoldForManyTexts) {
  std::mt19937 random(7);
  const std::vector<std::string> parts{"a",  "b",    "\n", "\r\n", "\xC3\xA4", "\xFF", "(", "[b",
                                       "\\", "*",    "+",  "$1",   "|",        ")",    "^", "$",
                                       ".",  "\xD8", "{2", "}",    "\xE2\x82", "?",    "A", "aa"};
  for (int turn = 0; turn < 3'000; ++turn) {
    std::string text;
    for (auto count = random() % 24; count > 0; --count) text += parts[random() % parts.size()];
    ASSERT_EQ(fuzz::BrokenSearchRule(text), "") << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace tarnwell::platform
