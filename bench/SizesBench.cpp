// Measuring a tree, beside `du` on the same one. TARNWELL_BENCH_TREE names it, else /usr.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "platform/linux/files/LinuxFileSystem.h"

namespace tarnwell::platform {
namespace {

std::string Tree() {
  const char* const named = std::getenv("TARNWELL_BENCH_TREE");
  return named != nullptr ? named : "/usr";
}

void DiskUsage(benchmark::State& state) {
  std::string tree = Tree(), words[] = {"du", "-sx", "--apparent-size"};
  char* const arguments[] = {words[0].data(), words[1].data(), words[2].data(), tree.data(),
                             nullptr};
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  for (const int descriptor : {1, 2}) {
    posix_spawn_file_actions_addopen(&quiet, descriptor, "/dev/null", O_WRONLY, 0);
  }
  for ([[maybe_unused]] const auto step : state) {
    pid_t child = 0;
    int status = 0;
    const bool ran = posix_spawnp(&child, arguments[0], &quiet, nullptr, arguments, environ) == 0 &&
                     waitpid(child, &status, 0) == child && WIFEXITED(status) &&
                     WEXITSTATUS(status) <= 1;  // 1: something could not be read
    if (!ran) {
      state.SkipWithError("du cannot be run");
      break;
    }
  }
  posix_spawn_file_actions_destroy(&quiet);
}
BENCHMARK(DiskUsage)->Unit(benchmark::kMillisecond)->UseRealTime();

void MeasureFolder(benchmark::State& state) {
  const LinuxFileSystem files;
  FolderTotal total;
  for ([[maybe_unused]] const auto step : state) {
    total = {};
    const base::Status status = files.MeasureFolder(
        Tree(), [](const FolderTotal&) { return true; }, total);
    if (!status) {
      state.SkipWithError(status.Reason.c_str());
      break;
    }
  }
  state.counters["items"] = static_cast<double>(total.Files + total.Folders);
  state.counters["bytes"] = static_cast<double>(total.Bytes);
}
BENCHMARK(MeasureFolder)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tarnwell::platform
