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

#include "lister/ListerControl.h"
#include "lister/rows/NoView.h"
#include "platform/afar/FarFileSystem.h"
#include "platform/linux/afar/LinuxFarPlaces.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/system/LinuxCollation.h"

namespace tarnwell::lister {
namespace {

using SteadyClock = std::chrono::steady_clock;

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

struct NoDrives : platform::Drives {
  std::vector<platform::Drive> List() const override { return {{"/", "/"}}; }
  std::string HomeFolder() const override { return ""; }
  std::string DriveOf(const std::string&) const override { return "/"; }
  void OnChange(std::function<void()>) override {}
};
struct NoWatches : platform::FolderWatch {
  std::unique_ptr<platform::Watch> Start(const std::string&, Changed) override { return nullptr; }
};
struct NoPump : platform::MessagePump {
  void DoEvents() override {}
  void WaitForEvents() override {}
};
struct NoLauncher : platform::Launcher {
  base::Status Execute(const platform::LaunchRequest&) override { return {}; }
  base::Status OpenTerminal(const std::string&) override { return {}; }
  std::vector<platform::LaunchFailure> OpenFiles(const std::vector<std::string>&,
                                                 const std::string&) override {
    return {};
  }
};
struct NoForms : platform::NumberForms {
  std::string Grouped(std::uint64_t number) const override { return std::to_string(number); }
  std::string Decimal(double number, int) const override { return std::to_string(number); }
  std::string DateAndTime(const platform::LocalTime&) const override { return ""; }
  std::string DateAndMinute(const platform::LocalTime&) const override { return ""; }
};
struct NoStamps : platform::FolderStamps {
  platform::FolderFacts ReadFacts(const std::string&) const override { return {}; }
  platform::FolderStamp Read(const std::string&) const override { return {}; }
  std::unique_ptr<platform::StampRequest> Ask(std::vector<std::string>, Told) override {
    return nullptr;
  }
};

// ExtendedAttributes when rows came, and stops the read there if that is all that is asked for.
struct RowsNoted : NoView {
  ListerControl* List = nullptr;
  bool Stops = false;
  std::optional<SteadyClock::time_point> Came;

  void EndReset() override {
    if (List->Rows().ChildCount(RootRow) == 0) return;
    Came = SteadyClock::now();
    List->CancelRequested = Stops;
  }
};

// Everything that a list works with.
struct Bench {
  NoPump Pump;
  platform::FarFileSystem Files{
      std::make_shared<platform::LinuxFileSystem>(),
      platform::FarCalls(Pump, {}, std::make_shared<platform::LinuxFarPlaces>())};
  NoDrives Drives;
  NoWatches Watches;
  platform::LinuxClock Clock;
  platform::LinuxCollation Order;
  NoLauncher Launcher;
  NoForms Forms;
  NoStamps Stamps;
  ListerEvents Events;

  // Seconds from the call to rows in order, or to all of them with their attributes.
  double Read(std::string folder, std::int64_t count, bool namesAlone) {
    const CutItems cut;
    const int brackets = 0;
    ListerControl list(
        FileListOf(0),
        {Files, Drives, Watches, Pump, Clock, Order, Launcher, Forms, Stamps, cut, brackets},
        Events);
    RowsNoted view;
    view.List = &list;
    view.Stops = namesAlone;
    list.View = &view;
    const SteadyClock::time_point start = SteadyClock::now();
    list.LoadFolderContents(folder, true);
    const SteadyClock::time_point end = SteadyClock::now();
    if (list.Rows().ChildCount(RootRow) != count) throw std::runtime_error("rows are missing");
    list.View = nullptr;
    return std::chrono::duration<double>((namesAlone ? *view.Came : end) - start).count();
  }
};

template <bool NamesAlone>
void ReadIntoList(benchmark::State& state) {
  const std::string& folder = FilledFolder::Of(state.range());
  Bench bench;
  for ([[maybe_unused]] const auto step : state) {
    state.SetIterationTime(bench.Read(folder, state.range(), NamesAlone));
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
