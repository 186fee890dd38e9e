// Reading a folder of 100,000 files into a file list, beside bare loops over the same folder. The
// folder is made in the folder for temporary files. TARNWELL_BENCH_MILLION asks for a million files
// too.
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "ListOfFiles.h"
#include "platform/afar/FarFileSystem.h"
#include "platform/linux/afar/LinuxFarPlaces.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/system/LinuxCollation.h"

namespace tarnwell::lister {
namespace {

// Exists while the benchmarks run.
class FilledFolder {
 public:
  explicit FilledFolder(int count) {
    path_ = std::filesystem::temp_directory_path() / "tarnwell-bench-XXXXXX";
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder for the benchmark");
    const int folder = open(path_.c_str(), O_DIRECTORY | O_RDONLY | O_CLOEXEC);
    for (int number = 0; number < count; ++number) {
      const std::string name = "IMG_2024_" + std::to_string(number * 7919LL % count) + ".jpeg";
      close(openat(folder, name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    }
    close(folder);
  }
  ~FilledFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  FilledFolder(const FilledFolder&) = delete;
  FilledFolder& operator=(const FilledFolder&) = delete;

  // The one with that many files.
  static const std::string& Of(std::int64_t count) {
    static std::map<std::int64_t, std::unique_ptr<FilledFolder>> made;
    std::unique_ptr<FilledFolder>& folder = made[count];
    if (!folder) folder = std::make_unique<FilledFolder>(static_cast<int>(count));
    return folder->path_;
  }

 private:
  std::string path_;
};

// With the care for other machines, as in the program.
struct Bench {
  NoPump Pump;
  platform::FarFileSystem Files{
      std::make_shared<platform::LinuxFileSystem>(),
      platform::FarCalls(Pump, {}, std::make_shared<platform::LinuxFarPlaces>())};
  platform::LinuxClock Clock;
  platform::LinuxCollation Order;
  ListOfFiles List{Files, Pump, Clock, Order};
};

template <bool NamesAlone>
void ReadIntoList(benchmark::State& state) {
  const std::string& folder = FilledFolder::Of(state.range());
  Bench bench;
  for ([[maybe_unused]] const auto step : state) {
    state.SetIterationTime(bench.List.Read(folder, state.range(), NamesAlone));
  }
}

template <bool NamesAlone>
void BareLoop(benchmark::State& state) {
  const std::string& path = FilledFolder::Of(state.range());
  for ([[maybe_unused]] const auto step : state) {
    const SteadyClock::time_point start = SteadyClock::now();
    DIR* const folder = opendir(path.c_str());
    while (const dirent* const entry = readdir(folder)) {
      struct statx found;
      if (!NamesAlone) {
        statx(dirfd(folder), entry->d_name, AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS | STATX_BTIME,
              &found);
      }
      benchmark::DoNotOptimize(entry->d_name[0]);
    }
    closedir(folder);
    state.SetIterationTime(std::chrono::duration<double>(SteadyClock::now() - start).count());
  }
}

void Counts(benchmark::internal::Benchmark* bench) {
  bench->Arg(100'000);
  if (std::getenv("TARNWELL_BENCH_MILLION") != nullptr) bench->Arg(1'000'000);
  bench->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(BareLoop<true>)->Name("Floor/readdir")->Apply(Counts);
BENCHMARK(ReadIntoList<true>)->Name("List/sorted_rows")->Apply(Counts);
BENCHMARK(BareLoop<false>)->Name("Floor/readdir_statx")->Apply(Counts);
BENCHMARK(ReadIntoList<false>)->Name("List/all_attributes")->Apply(Counts);

}  // namespace
}  // namespace tarnwell::lister
