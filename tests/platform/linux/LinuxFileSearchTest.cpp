#include <sys/socket.h>
#include <sys/un.h>

#include "RunUntil.h"
#include "TempFolder.h"
#include "fuzz/SearchProperties.h"
#include "platform/linux/search/LinuxFileSearch.h"
#include "platform/pcre/PcreRegex.h"

namespace tarnwell::platform {
namespace {

// What came of a search by its end.
struct SearchTold {
  std::multiset<std::string> Names;
  std::vector<SearchTrouble> Troubles;
  SearchUpdate Last;

  std::string Text() const {
    std::string text;
    for (const std::string& name : Names) text += name + " ";
    return text;
  }
};

std::function<std::unique_ptr<Regex>()> Regexes(const std::string& expression,
                                                RegexOptions options = {}) {
  options.HasLines = true;
  return [expression, options] {
    RegexFault fault;
    return CompilePcre(expression, options, fault);
  };
}

class LinuxFileSearchTest : public testing::Test {
 protected:
  SearchTold Search(SearchRequest request) {
    if (request.Folder.empty()) request.Folder = folder_.Path();
    SearchTold told;
    const auto search = search_.Start(std::move(request), [&](SearchUpdate update) {
      EXPECT_FALSE(told.Last.IsDone);
      for (const FoundItem& item : update.Found) told.Names.insert(item.Name);
      for (const SearchTrouble& trouble : update.Troubles) told.Troubles.push_back(trouble);
      told.Last = std::move(update);
    });
    EXPECT_TRUE(RunUntil([&] { return told.Last.IsDone; }));
    EXPECT_EQ(told.Last.Counts.Found, told.Names.size());
    return told;
  }
  std::string Names(SearchRequest request) { return Search(std::move(request)).Text(); }
  std::string WithContent(const std::string& content) {
    return Names({.Folder = {}, .Content = content});
  }

  const TempFolder folder_{"/dev/shm/"};  // where many files are made soon
  LinuxFileSearch search_;
};

SearchRequest NamesWith(const std::string& part) {
  SearchRequest request;
  request.MakeNameTest = [part] {
    return [part](std::string_view name, bool) { return name.find(part) != name.npos; };
  };
  return request;
}

TEST_F(LinuxFileSearchTest, FindsByNameKindAndPlace) {
  folder_.Make({"a1=x", "sub/a2=y", "sub/deep/a3|", "sub/deep/a4->..", ".a5/a6=z",
                "sub/b=", "a\n\xff/a7\xfe/"});
  EXPECT_EQ(Names(NamesWith("a")), "a\n\xff a\n\xff/a7\xfe a1 sub/a2 sub/deep/a3 sub/deep/a4 ");
  SearchRequest request = NamesWith("a");
  request.TakesHidden = true;
  request.FindsFolders = request.FindsLinks = request.FindsOthers = false;
  EXPECT_EQ(Names(request), ".a5/a6 a1 sub/a2 ");
  request.Levels = 1;
  EXPECT_EQ(Names(request), "a1 ");
  request.FindsFiles = false;
  request.FindsOthers = request.FindsLinks = true;
  request.Levels = 3;
  EXPECT_EQ(Names(request), "sub/deep/a3 sub/deep/a4 ");
  request = {};
  request.Sizes.Most = 0;
  EXPECT_EQ(Names(request), "sub/b ");
  request.Sizes = {};
  const timespec old[2] = {{1'000, 5}, {1'000, 5}};
  ASSERT_EQ(utimensat(AT_FDCWD, (folder_ / "sub").c_str(), old, 0), 0);
  request.Modified = {1'000'000'000'005, 1'000'000'000'005};
  EXPECT_EQ(Names(request), "sub ");
}

TEST_F(LinuxFileSearchTest, LooksIntoRegularFilesAlone) {
  const std::string half(TextScan::PieceSize - 3, '-');
  folder_.Make({"plain=a Needle b", "between=" + half + "Needle", "fifo|", "link->plain",
                "sub/late=" + half + half + "\nNeedles", "binary=Needle" + std::string(1, '\0'),
                "little=\xFF\xFEN" + std::string("\0e\0e\0d\0l\0e\0", 11),
                "empty=", "big=\xFE\xFF" + std::string("\0N\0e\0e\0d\0l\0e\xD8", 13)});
  sockaddr_un place{.sun_family = AF_UNIX, .sun_path = {}};
  (folder_ / "socket").copy(place.sun_path, sizeof place.sun_path - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  bind(socket, reinterpret_cast<const sockaddr*>(&place), sizeof place);
  EXPECT_EQ(WithContent("Needle"), "between big little plain sub/late ");
  SearchRequest request;
  request.MakeContentTest = Regexes("^needle$", {.IgnoresCase = true});
  EXPECT_EQ(Names(request), "little ");
  // A long line is seen in stretches, which begin and end no line and no word.
  folder_.Make({"stretches=x" + half.substr(5) + " Needle" + std::string(400'000, 'y') + "x"});
  request.MakeContentTest = Regexes("^y|y$");
  EXPECT_EQ(Names(request), "");
  request.MakeContentTest =
      Regexes("needle", {.IsLiteral = true, .IgnoresCase = true, .IsWholeWords = true});
  request.LooksIntoBinary = true;
  EXPECT_EQ(Names(request), "between big binary little plain ");
  request.LargestFile = 20;
  const SearchTold told = Search(request);
  EXPECT_EQ(told.Text(), "big binary little plain ");
  EXPECT_EQ(told.Last.Counts.TooLarge, 3U);
  EXPECT_EQ(told.Last.Counts.LookedInto, 5U);
  EXPECT_TRUE(told.Troubles.empty());
  close(socket);
}

TEST_F(LinuxFileSearchTest, TellsWhatItCannotRead) {
  folder_.Make({"open/x=", "locked/x=", "shut=Needle", "long=" + std::string(40'000, 'a') + "!"});
  InChild([&] {
    chmod((folder_ / "locked").c_str(), 0);
    chmod((folder_ / "shut").c_str(), 0);
    BecomeNobody();
    SearchRequest request;
    request.MakeContentTest = Regexes("(a+)+$");
    const SearchTold told = Search(request);
    EXPECT_EQ(told.Last.Counts.Troubles, 3U);
    std::set<std::string> paths;
    for (const SearchTrouble& trouble : told.Troubles) {
      EXPECT_FALSE(trouble.Reason) << trouble.Path;
      paths.insert(trouble.Path);
    }
    EXPECT_EQ(paths, (std::set{folder_ / "locked", folder_ / "long", folder_ / "shut"}));
  });
  SearchRequest request;
  request.Folder = folder_ / "missing";
  EXPECT_EQ(Search(request).Last.Status.Code, ENOENT);
  request.Folder = folder_.Path();
  request.Content = std::string(1 << 20, 'a');
  EXPECT_NE(Search(request).Last.Status.Code, 0);
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

TEST_F(LinuxFileSearchTest, TellsNothingOnceItIsLetGoOf) {
  for (int file = 0; file < 9'000; ++file) folder_.Make({"f" + std::to_string(file) + "="});
  std::unique_ptr<RunningSearch> search;
  std::size_t found = 0;
  int updates = 0;
  search = search_.Start({.Folder = folder_.Path()}, [&](const SearchUpdate& update) {
    ++updates;
    found += update.Found.size();
    if (found > 0) search.reset();
  });
  EXPECT_EQ(updates, 0);
  ASSERT_TRUE(RunUntil([&] { return found > 0; }));
  EXPECT_LT(found, 5'000U);  // at a time
  const int before = updates;
  EXPECT_EQ(Names(NamesWith("f8999")), "f8999 ");
  EXPECT_EQ(updates, before);
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
