#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "TempFolder.h"
#include "platform/linux/LinuxFolderWatch.h"

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

TEST(LinuxFolderWatch, TellsOfEachKindOfChange) {
  const TempFolder folder;
  const std::string watched = folder / "watched", file = watched + "/file", moved = file + "2";
  mkdir(watched.c_str(), 0755);
  int calls = 0;
  const auto watch = LinuxFolderWatch().Start(watched, [&](const FolderChanges&) { ++calls; });
  ASSERT_NE(watch, nullptr);
  const std::function<void()> changes[] = {
      [&] { Put(file, ""); },
      [&] { Put(file, "content"); },
      [&] { chmod(file.c_str(), 0600); },
      [&] { rename(file.c_str(), moved.c_str()); },
      [&] { unlink(moved.c_str()); },
      [&] { rename(watched.c_str(), (folder / "x").c_str()); }};
  for (const auto& change : changes) {
    RunUntil([] { return false; }, 300ms);  // until nothing of the last one is under way
    calls = 0;
    change();
    EXPECT_TRUE(RunUntil([&] { return calls > 0; })) << &change - changes;
  }
}

TEST(LinuxFolderWatch, MakesOneCallOfABurstAndNoneOfWhatLiesBelow) {
  const TempFolder folder;
  mkdir((folder / "sub").c_str(), 0755);
  int calls = 0;
  const auto watch =
      LinuxFolderWatch().Start(folder.Path(), [&](const FolderChanges&) { ++calls; });
  const auto burst = [&](const std::string& where) {
    for (int number = 0; number < 300; ++number) Put(where + "/" + std::to_string(number), "");
  };
  burst(folder / "sub");
  EXPECT_FALSE(RunUntil([&] { return calls > 0; }, 500ms));
  burst(folder.Path());
  EXPECT_TRUE(RunUntil([&] { return calls > 0; }));
  // One as a rule; a busy machine may stretch the burst beyond the time of one.
  EXPECT_FALSE(RunUntil([&] { return calls > 3; }, 500ms));
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

}  // namespace
}  // namespace tarnwell::platform
