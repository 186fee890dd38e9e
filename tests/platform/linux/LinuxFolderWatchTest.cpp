#include "RunUntil.h"
#include "TempFolder.h"
#include "platform/linux/files/LinuxFolderStamps.h"
#include "platform/linux/files/LinuxFolderWatch.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

// What a watch told, taken together.
struct Told {
  int Calls = 0;
  std::set<std::string> Names;
  bool Everything = false;
  bool Gone = false;

  FolderWatch::Changed Take() {
    return [this](const FolderChanges& changes) {
      ++Calls;
      Names.insert(changes.Names.begin(), changes.Names.end());
      Everything |= changes.Everything;
      Gone |= changes.FolderGone;
    };
  }
};

// Nothing that happened before it can still be under way once this change is told.
void MakeLastChange(const std::string& folder, const Told& told) {
  Put(folder + "/last", "");
  EXPECT_TRUE(RunUntil([&] { return told.Names.contains("last"); }));
}

TEST(LinuxFolderWatch, NamesWhatChanged) {
  const TempFolder folder;
  const std::string watched = folder / "watched/", odd = "odd \xff\n%2F";
  folder.Make({"watched/sub/", "watched/content=", "watched/mode=", "watched/old name=",
               "watched/leaves=", "watched/goes=", "comes="});
  Told told;
  const auto watch = LinuxFolderWatch().Start(folder / "watched", told.Take());
  ASSERT_NE(watch, nullptr);
  Put(watched + odd, "");
  Put(watched + "content", "more");
  chmod((watched + "mode").c_str(), 0600);
  rename((watched + "old name").c_str(), (watched + "new name").c_str());
  rename((watched + "leaves").c_str(), (folder / "leaves").c_str());
  rename((folder / "comes").c_str(), (watched + "comes").c_str());
  unlink((watched + "goes").c_str());
  mkdir((watched + "made").c_str(), 0755);
  Put(watched + "sub/file", "");  // nothing to the folder itself, as the next
  chmod(watched.c_str(), 0700);
  MakeLastChange(watched, told);
  EXPECT_EQ(told.Names, (std::set<std::string>{odd, "comes", "content", "goes", "last", "leaves",
                                               "made", "mode", "new name", "old name"}));
  EXPECT_TRUE(!told.Everything && !told.Gone);
}

TEST(LinuxFolderWatch, TellsThatTheFolderWent) {
  const TempFolder folder;
  const std::string watched = folder / "watched";
  for (const bool isMoved : {true, false}) {
    folder.Make({"watched/file="});
    Told told;
    const auto watch = LinuxFolderWatch().Start(watched, told.Take());
    const int user = open(watched.c_str(), O_PATH);  // another program may hold the folder
    isMoved ? fs::rename(watched, folder / "x") : void(fs::remove_all(watched));
    EXPECT_TRUE(RunUntil([&] { return told.Gone; })) << isMoved;
    close(user);
  }
}

TEST(LinuxFolderWatch, GoesByTheFolderAndNotByItsPath) {
  const TempFolder folder;
  const std::string inner = folder / "a/inner", link = folder / "link";
  folder.Make({"a/inner/", "link->a/inner"});
  LinuxFolderWatch watches;
  Told told, other;
  const auto watch = watches.Start(link, told.Take());
  watches.Start(inner, other.Take()).reset();

  // Another folder has come in the place of one further up.
  rename((folder / "a").c_str(), (folder / "b").c_str());
  folder.Make({"a/inner/"});
  const auto newer = watches.Start(inner, other.Take());
  Put(inner + "/newer", "");
  Put(folder / "b/inner/newest", "");
  EXPECT_TRUE(RunUntil([&] { return !other.Names.empty() && !told.Names.empty(); }));
  EXPECT_EQ(other.Names, std::set<std::string>{"newer"});
  EXPECT_EQ(told.Names, std::set<std::string>{"newest"});
}

TEST(LinuxFolderWatch, MakesFewCallsOfABurst) {
  const TempFolder folder;
  Told told;
  const auto watch = LinuxFolderWatch().Start(folder.Path(), told.Take());
  for (int number = 0; number < 10'000; ++number) Put(folder / std::to_string(number), "");
  EXPECT_TRUE(RunUntil([&] { return told.Everything; }));
  while (!told.Names.contains("last")) {  // the rest of the burst may take in one of them
    Put(folder / "last", "");
    ASSERT_TRUE(RunUntil([&, before = told.Calls] { return told.Calls > before; }));
  }
  EXPECT_LE(told.Calls, 5);  // two as a rule; a busy machine may stretch the burst
}

TEST(LinuxFolderWatch, MayEndWithinItsOwnCallOrWithOneUnderWay) {
  const TempFolder folder;
  LinuxFolderWatch watches;
  int calls = 0;
  std::unique_ptr<Watch> watch;
  watch = watches.Start(folder.Path(), [&watch, &calls](const FolderChanges&) {
    watch.reset();
    ++calls;  // reads what the call holds, after its watch is gone
  });
  Put(folder / "file", "");
  EXPECT_TRUE(RunUntil([&] { return calls == 1; }));
  Told told;
  watch = watches.Start(folder.Path(), [&](const FolderChanges&) { ++calls; });
  const auto other = watches.Start(folder.Path(), told.Take());
  Put(folder / "other", "");
  g_main_context_iteration(nullptr, 0);
  watch.reset();
  MakeLastChange(folder.Path(), told);
  EXPECT_EQ(calls, 1);
  for (const char* none : {"missing", "file"}) EXPECT_EQ(watches.Start(folder / none, {}), nullptr);
}

TEST(LinuxFolderStamps, TellFoldersApartAndFromWhatTheyWere) {
  const TempFolder folder;
  const std::string one = folder / "one", link = folder / "link", none = one + "/file/none";
  folder.Make({"one/", "link->one"});
  LinuxFolderStamps stamps;
  const FolderStamp before = stamps.Read(one);
  EXPECT_EQ(stamps.ReadFacts(link).Stamp, before);
  EXPECT_TRUE(stamps.ReadFacts(link).IsByLink && !stamps.ReadFacts(one).IsByLink);
  EXPECT_FALSE(stamps.Read(folder.Path()).IsSameFolder(before));
  RunUntil([&] { return Put(one + "/file", ""), stamps.Read(one) != before; });
  EXPECT_TRUE(stamps.Read(one).IsSameFolder(before));
  EXPECT_TRUE(stamps.ReadFacts(none).IsLocal && !stamps.Read(none).IsThere);

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
