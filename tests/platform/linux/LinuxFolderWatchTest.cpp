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
  const std::function<void(const std::string&)> changes[] = {
      [](const std::string& path) { Put(path + "/new", ""); },
      [](const std::string& path) { Put(path + "/file", "content"); },
      [](const std::string& path) { chmod((path + "/file").c_str(), 0600); },
      [](const std::string& path) { rename((path + "/file").c_str(), (path + "/moved").c_str()); },
      [](const std::string& path) { unlink((path + "/file").c_str()); },
      [](const std::string& path) { rename(path.c_str(), (path + " elsewhere").c_str()); }};
  for (std::size_t number = 0; number < std::size(changes); ++number) {
    SCOPED_TRACE(number);
    const TempFolder folder;
    const std::string watched = folder / "watched";
    mkdir(watched.c_str(), 0755);
    Put(watched + "/file", "");
    int calls = 0;
    const auto watch = LinuxFolderWatch().Start(watched, [&] { ++calls; });
    ASSERT_NE(watch, nullptr);
    changes[number](watched);
    EXPECT_TRUE(RunUntil([&] { return calls > 0; }));
  }
}

TEST(LinuxFolderWatch, MakesOneCallOfABurstAndNoneOfWhatLiesBelow) {
  const TempFolder folder;
  mkdir((folder / "sub").c_str(), 0755);
  int calls = 0;
  const auto watch = LinuxFolderWatch().Start(folder.Path(), [&] { ++calls; });
  ASSERT_NE(watch, nullptr);
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

TEST(LinuxFolderWatch, MayEndWithinItsOwnCall) {
  const TempFolder folder;
  int calls = 0;
  std::unique_ptr<Watch> watch;
  watch = LinuxFolderWatch().Start(folder.Path(), [&watch, &calls] {
    watch.reset();
    ++calls;  // reads what the call holds, after its watch is gone
  });
  Put(folder / "file", "");
  EXPECT_TRUE(RunUntil([&] { return calls == 1; }));
  Put(folder / "other", "");

  // And with a call under way.
  watch = LinuxFolderWatch().Start(folder.Path(), [&] { ++calls; });
  Put(folder / "third", "");
  RunUntil([] { return false; }, 50ms);
  watch.reset();
  EXPECT_FALSE(RunUntil([&] { return calls > 1; }, 500ms));

  EXPECT_EQ(LinuxFolderWatch().Start(folder / "missing", [] {}), nullptr);
  EXPECT_EQ(LinuxFolderWatch().Start(folder / "file", [] {}), nullptr);
}

}  // namespace
}  // namespace tarnwell::platform
