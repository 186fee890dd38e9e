#include "WatchTold.h"
#include "platform/linux/files/LinuxFolderStamps.h"
#include "platform/linux/files/LinuxFolderWatch.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

TEST(LinuxFolderWatch, NamesNothingFromFurtherDown) {
  const TempFolder folder;
  const std::string watched = folder / "watched/", odd = "odd \xff\n%2F";
  folder.Make({"watched/sub/", "watched/mode="});
  WatchTold told;
  const auto watch = LinuxFolderWatch().Start(folder / "watched", told.Take());
  Put(watched + odd, "");
  chmod((watched + "mode").c_str(), 0600);
  Put(watched + "sub/file", "");  // nothing to the folder itself, as the next
  chmod(watched.c_str(), 0700);
  told.MakeLastChange(watched + "last");
  EXPECT_EQ(told.Names, (std::set<std::string>{odd, "last", "mode"}));
  EXPECT_TRUE(!told.Everything && !told.Gone);
}

TEST(LinuxFolderWatch, TellsThatAFolderWentThatIsInUse) {
  const TempFolder folder;
  const std::string watched = folder / "watched";
  folder.Make({"watched/file="});
  WatchTold told;
  const auto watch = LinuxFolderWatch().Start(watched, told.Take());
  const int user = open(watched.c_str(), O_PATH);  // another program holds the folder
  fs::remove_all(watched);
  EXPECT_TRUE(RunUntil([&] { return told.Gone; }));
  close(user);
}

TEST(LinuxFolderWatch, GoesByTheFolderAndNotByItsPath) {
  const TempFolder folder;
  const std::string inner = folder / "a/inner", link = folder / "link";
  folder.Make({"a/inner/", "link->a/inner"});
  LinuxFolderWatch watches;
  WatchTold told, other;
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

TEST(LinuxFolderStamps, KnowWhatIsReachedByALink) {
  const TempFolder folder;
  folder.Make({"one/", "link->one"});
  const LinuxFolderStamps stamps;
  EXPECT_EQ(stamps.ReadFacts(folder / "link").Stamp, stamps.Read(folder / "one"));
  EXPECT_TRUE(stamps.ReadFacts(folder / "link").IsByLink);
}

}  // namespace
}  // namespace tarnwell::platform
