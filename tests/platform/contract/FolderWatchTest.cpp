#include "FolderServices.h"
#include "RunUntil.h"
#include "TempFolder.h"
#include "WatchTold.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

TEST(FolderWatch, NamesWhatChanged) {
  const TempFolder folder;
  const std::string odd = "watched/odd \u00e9\u4e2d %2F";
  folder.Make({"watched/sub/", "watched/content=", "watched/old name=", "watched/leaves=",
               "watched/goes=", "comes="});
  WatchTold told;
  const auto watch = TestedWatch().Start(folder / "watched", told.Take());
  ASSERT_NE(watch, nullptr);
  folder.Make({odd + "=", "watched/content=more", "watched/made/", "beside="});
  fs::rename(PathOf(folder / "watched/old name"), PathOf(folder / "watched/new name"));
  fs::rename(PathOf(folder / "watched/leaves"), PathOf(folder / "leaves"));
  fs::rename(PathOf(folder / "comes"), PathOf(folder / "watched/comes"));
  fs::remove(PathOf(folder / "watched/goes"));
  told.MakeLastChange(folder / "watched/last");
  EXPECT_EQ(told.Names,
            (std::set<std::string>{odd.substr(odd.find('/') + 1), "comes", "content", "goes",
                                   "last", "leaves", "made", "new name", "old name"}));
  EXPECT_TRUE(!told.Everything && !told.Gone);
}

TEST(FolderWatch, ReachesWhateverNameAnItemHas) {
  const TempFolder folder;
  std::string deep = "CON /dot./";
  for (int level = 0; level < 40; ++level) deep += "a long name/";
  deep.pop_back();
  folder.Make({deep + "/"});
  WatchTold told;
  const auto watch = TestedWatch().Start(folder / deep, told.Take());
  ASSERT_NE(watch, nullptr);
  Put(folder / (deep + "/nul"), "");
  told.MakeLastChange(folder / (deep + "/last"));
  EXPECT_EQ(told.Names, (std::set<std::string>{"last", "nul"}));
  EXPECT_TRUE(TestedStamps().Read(folder / deep).IsThere);
}

TEST(FolderWatch, TellsThatTheFolderWent) {
  const TempFolder folder;
  folder.Make({"watched/file="});
  WatchTold told;
  const auto watch = TestedWatch().Start(folder / "watched", told.Take());
  fs::rename(PathOf(folder / "watched"), PathOf(folder / "x"));
  EXPECT_TRUE(RunUntil([&] { return told.Gone; }));
}

TEST(FolderWatch, MakesFewCallsOfABurst) {
  const TempFolder folder;
  WatchTold told;
  const auto watch = TestedWatch().Start(folder.Path(), told.Take());
  for (int number = 0; number < BurstChanges; ++number) Put(folder / std::to_string(number), "");
  EXPECT_TRUE(RunUntil([&] { return told.Everything; }));
  while (!told.Names.contains("last")) {  // the rest of the burst may take in one of them
    Put(folder / "last", "");
    ASSERT_TRUE(RunUntil([&, before = told.Calls] { return told.Calls > before; }));
  }
  EXPECT_LE(told.Calls, BurstCalls);
}

TEST(FolderWatch, MayEndWithinItsOwnCallOrWithOneUnderWay) {
  const TempFolder folder;
  TestedWatch watches;
  int calls = 0;
  std::unique_ptr<Watch> watch;
  watch = watches.Start(folder.Path(), [&watch, &calls](const FolderChanges&) {
    watch.reset();
    ++calls;  // reads what the call holds, after its watch is gone
  });
  Put(folder / "file", "");
  EXPECT_TRUE(RunUntil([&] { return calls == 1; }));
  WatchTold told;
  watch = watches.Start(folder.Path(), [&](const FolderChanges&) { ++calls; });
  const auto other = watches.Start(folder.Path(), told.Take());
  Put(folder / "other", "");
  RunUntil([] { return true; });
  watch.reset();
  told.MakeLastChange(folder / "last");
  EXPECT_EQ(calls, 1);
  for (const char* none : {"missing", "file"}) EXPECT_EQ(watches.Start(folder / none, {}), nullptr);
}

TEST(FolderStamps, TellFoldersApartAndFromWhatTheyWere) {
  const TempFolder folder;
  const std::string one = folder / "one", none = folder / "one/file/none";
  folder.Make({"one/"});
  TestedStamps stamps;
  const FolderStamp before = stamps.Read(one);
  EXPECT_TRUE(before.IsThere && stamps.ReadFacts(one).Stamp == before);
  EXPECT_FALSE(stamps.ReadFacts(one).IsByLink);
  EXPECT_FALSE(stamps.Read(folder.Path()).IsSameFolder(before));
  RunUntil([&] { return Put(folder / "one/file", ""), stamps.Read(one) != before; });
  EXPECT_TRUE(stamps.Read(one).IsSameFolder(before));
  EXPECT_TRUE(stamps.ReadFacts(none).IsLocal && !stamps.Read(none).IsThere);
  EXPECT_FALSE(stamps.Read(folder / "one/file").IsThere);

  std::vector<FolderStamp> told;
  stamps.Ask({one}, [](const auto&) { ADD_FAILURE(); }).reset();
  std::unique_ptr<StampRequest> request = stamps.Ask({one, none}, [&](const auto& found) {
    request.reset();
    told = found;  // what the call holds outlives the request
  });
  EXPECT_TRUE(RunUntil([&] { return !told.empty(); }));
  EXPECT_EQ(told, (std::vector{stamps.Read(one), FolderStamp()}));
}

}  // namespace
}  // namespace tarnwell::platform
