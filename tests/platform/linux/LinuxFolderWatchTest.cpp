#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "TempFolder.h"
#include "platform/linux/files/LinuxFolderStamps.h"
#include "platform/linux/files/LinuxFolderWatch.h"

// The adapter keeps GLib to itself; the event loop is all that a test needs of it.
extern "C" int g_main_context_iteration(struct _GMainContext* context, int mayBlock);

namespace tarnwell::platform {
namespace {

using namespace std::chrono_literals;

// Runs the event loop until the condition holds; false when the time is up first.
bool RunUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit = 10s) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    if (g_main_context_iteration(nullptr, 0) == 0) std::this_thread::sleep_for(1ms);
  }
  return true;
}

// What a watch told, taken together.
struct Told {
  int Calls = 0;
  std::set<std::string> Names;
  bool Everything = false;
  bool Gone = false;

  FolderWatch::Changed Take() {
    return [this](const FolderChanges& changes) {
      ++Calls;
      for (const std::string& name : changes.Names) EXPECT_TRUE(!name.empty());
      Names.insert(changes.Names.begin(), changes.Names.end());
      Everything |= changes.Everything;
      Gone |= changes.FolderGone;
    };
  }
};

TEST(LinuxFolderWatch, NamesWhatChanged) {
  const TempFolder folder;
  const std::string watched = folder / "watched", name = "odd \xff\n%2F",
                    file = watched + "/" + name;
  mkdir(watched.c_str(), 0755);
  Told told;
  const auto watch = LinuxFolderWatch().Start(watched, told.Take());
  ASSERT_NE(watch, nullptr);
  struct Change {
    std::function<void()> Make;
    std::set<std::string> Names;
  };
  const Change changes[] = {
      {[&] { Put(file, ""); }, {name}},
      {[&] { Put(file, "content"); }, {name}},
      {[&] { chmod(file.c_str(), 0600); }, {name}},
      {[&] { rename(file.c_str(), (watched + "/new").c_str()); }, {name, "new"}},
      {[&] { rename((watched + "/new").c_str(), (folder / "out").c_str()); }, {"new"}},
      {[&] { rename((folder / "out").c_str(), (watched + "/in").c_str()); }, {"in"}},
      {[&] { unlink((watched + "/in").c_str()); }, {"in"}},
      {[&] { mkdir((watched + "/sub").c_str(), 0755); }, {"sub"}}};
  for (const Change& change : changes) {
    RunUntil([] { return false; }, 300ms);  // until nothing of the last one is under way
    told = {};
    change.Make();
    EXPECT_TRUE(RunUntil([&] { return told.Names == change.Names; })) << &change - changes;
    EXPECT_TRUE(!told.Everything && !told.Gone) << &change - changes;
  }
  RunUntil([] { return false; }, 300ms);
  told = {};
  Put(watched + "/sub/file", "");
  chmod(watched.c_str(), 0700);
  EXPECT_FALSE(RunUntil([&] { return told.Calls > 0; }, 500ms));
}

TEST(LinuxFolderWatch, TellsThatTheFolderWent) {
  const TempFolder folder;
  const std::string watched = folder / "watched";
  const std::function<void()> ends[] = {
      [&] { rename(watched.c_str(), (folder / "x").c_str()); },
      [&] { std::filesystem::remove_all(watched); },
  };
  for (const auto& end : ends) {
    mkdir(watched.c_str(), 0755);
    Put(watched + "/file", "");
    Told told;
    const auto watch = LinuxFolderWatch().Start(watched, told.Take());
    const int user = open(watched.c_str(), O_PATH);  // another program may hold the folder
    end();
    EXPECT_TRUE(RunUntil([&] { return told.Gone; })) << &end - ends;
    close(user);
  }
}

TEST(LinuxFolderWatch, GoesByTheFolderAndNotByItsPath) {
  const TempFolder folder;
  const std::string inner = folder / "a/inner", link = folder / "link";
  std::filesystem::create_directories(inner);
  symlink("a/inner", link.c_str());
  LinuxFolderWatch watches;
  Told told, other;
  const auto watch = watches.Start(link, told.Take());
  auto brief = watches.Start(inner, other.Take());
  brief.reset();
  Put(inner + "/new", "");
  EXPECT_TRUE(RunUntil([&] { return told.Names.contains("new"); }));

  // Another folder has come in the place of one further up.
  rename((folder / "a").c_str(), (folder / "b").c_str());
  std::filesystem::create_directories(inner);
  brief = watches.Start(inner, other.Take());
  Put(inner + "/newer", "");
  Put(folder / "b/inner/newest", "");
  EXPECT_TRUE(RunUntil([&] { return !other.Names.empty() && told.Names.contains("newest"); }));
  EXPECT_EQ(other.Names, std::set<std::string>{"newer"});
}

TEST(LinuxFolderWatch, MakesFewCallsOfABurst) {
  const TempFolder folder;
  Told told;
  const auto watch = LinuxFolderWatch().Start(folder.Path(), told.Take());
  for (int number = 0; number < 10'000; ++number) Put(folder / std::to_string(number), "");
  EXPECT_TRUE(RunUntil([&] { return told.Everything; }));
  // One as a rule; a busy machine may stretch the burst beyond the time of one.
  EXPECT_FALSE(RunUntil([&] { return told.Calls > 5; }, 500ms));
}

TEST(LinuxFolderWatch, MayEndWithinItsOwnCallOrWithOneUnderWay) {
  const TempFolder folder;
  int calls = 0;
  std::unique_ptr<Watch> watch;
  watch = LinuxFolderWatch().Start(folder.Path(), [&watch, &calls](const FolderChanges&) {
    watch.reset();
    ++calls;  // reads what the call holds, after its watch is gone
  });
  Put(folder / "file", "");
  EXPECT_TRUE(RunUntil([&] { return calls == 1; }));
  watch = LinuxFolderWatch().Start(folder.Path(), [&](const FolderChanges&) { ++calls; });
  Put(folder / "other", "");
  RunUntil([] { return false; }, 50ms);
  watch.reset();
  EXPECT_FALSE(RunUntil([&] { return calls > 1; }, 500ms));
  EXPECT_EQ(LinuxFolderWatch().Start(folder / "missing", [](const FolderChanges&) {}), nullptr);
  EXPECT_EQ(LinuxFolderWatch().Start(folder / "file", [](const FolderChanges&) {}), nullptr);
}

TEST(LinuxFolderStamps, TellFoldersApartAndFromWhatTheyWere) {
  const TempFolder folder;
  const std::string one = folder / "one", link = folder / "link", none = one + "/file/none";
  mkdir(one.c_str(), 0755);
  symlink("one", link.c_str());
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
