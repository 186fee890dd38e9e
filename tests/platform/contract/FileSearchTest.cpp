#include "SearchFixture.h"
#include "platform/search/TextScan.h"

namespace tarnwell::platform {
namespace {

using FileSearchTest = SearchFixture;

TEST_F(FileSearchTest, FindsByNameKindAndPlace) {
  folder_.Make({"a1=x", "sub/a2=y", "sub/deep/a3=", ".a5/a6=z", "sub/b=", "a \u00e9/a7/"});
  Hide(folder_ / ".a5");
  EXPECT_EQ(Names(NamesWith("a")), "a \u00e9 a \u00e9/a7 a1 sub/a2 sub/deep/a3 ");
  SearchRequest request = NamesWith("a");
  request.TakesHidden = true;
  request.FindsFolders = request.FindsLinks = request.FindsOthers = false;
  EXPECT_EQ(Names(request), ".a5/a6 a1 sub/a2 sub/deep/a3 ");
  request.Levels = 1;
  EXPECT_EQ(Names(request), "a1 ");
  request.FindsFiles = false;
  request.FindsFolders = true;
  request.Levels = 2;
  EXPECT_EQ(Names(request), ".a5 a \u00e9 a \u00e9/a7 ");
  request = {};
  request.Sizes.Most = 0;
  EXPECT_EQ(Names(request), "sub/b sub/deep/a3 ");
  request.Sizes = {};
  const auto hours = std::filesystem::file_time_type::clock::now() - std::chrono::hours(2);
  std::filesystem::last_write_time(PathOf(folder_ / "sub/b"), hours);
  request.Modified.Most =
      std::chrono::nanoseconds(
          (std::chrono::system_clock::now() - std::chrono::hours(1)).time_since_epoch())
          .count();
  EXPECT_EQ(Names(request), "sub/b ");
}

TEST_F(FileSearchTest, LooksIntoFilesAlone) {
  const std::string half(TextScan::PieceSize - 3, '-');
  folder_.Make({"plain=a Needle b", "between=" + half + "Needle", "Needle/",
                "sub/late=" + half + half + "\nNeedles", "binary=Needle" + std::string(1, '\0'),
                "little=\xFF\xFEN" + std::string("\0e\0e\0d\0l\0e\0", 11),
                "empty=", "big=\xFE\xFF" + std::string("\0N\0e\0e\0d\0l\0e\xD8", 13)});
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
}

TEST_F(FileSearchTest, ReachesWhateverNameAnItemHas) {
  std::string deep;
  for (int level = 0; level < 40; ++level) deep += "a long name/";
  folder_.Make({"CON=Needle", "nul.txt=Needle", "blank =Needle", "dot.=Needle", deep + "x=Needle"});
  EXPECT_EQ(WithContent("Needle"), "CON " + deep + "x blank  dot. nul.txt ");
}

TEST_F(FileSearchTest, TellsWhatItCannotSearch) {
  folder_.Make({"long=" + std::string(40'000, 'a') + "!", "file="});
  SearchRequest request;
  request.MakeContentTest = Regexes("(a+)+$");
  const SearchTold told = Search(request);
  ASSERT_EQ(told.Troubles.size(), 1U);
  EXPECT_EQ(told.Troubles.front().Path, folder_ / "long");
  EXPECT_FALSE(told.Troubles.front().Reason);
  for (const char* none : {"missing", "file"}) {
    EXPECT_FALSE(Search({.Folder = folder_ / none}).Last.Status) << none;
  }
  EXPECT_FALSE(Search({.Folder = {}, .Content = std::string(1 << 20, 'a')}).Last.Status);
}

TEST_F(FileSearchTest, SharesWhatThereIsToLookInto) {
  for (int folder = 0; folder < 20; ++folder) {
    const std::string name = "f" + std::to_string(folder);
    for (int file = 0; file < 20; ++file) {
      folder_.Make({name + "/" + std::to_string(file) + (file % 2 == 0 ? "=Needle" : "=no")});
    }
  }
  const SearchTold told = Search({.Folder = {}, .Content = "Needle"});
  EXPECT_EQ(told.Names.size(), 200U);
  EXPECT_EQ(std::set(told.Names.begin(), told.Names.end()).size(), 200U);
  EXPECT_EQ(told.Last.Counts.LookedInto, 400U);
  EXPECT_EQ(told.Last.Counts.Folders, 21U);
}

TEST_F(FileSearchTest, TellsNothingOnceItIsLetGoOf) {
  for (int file = 0; file < 6'000; ++file) Put(folder_ / "f" + std::to_string(file), "");
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
  EXPECT_EQ(Names(NamesWith("f5999")), "f5999 ");
  EXPECT_EQ(updates, before);
}

}  // namespace
}  // namespace tarnwell::platform
