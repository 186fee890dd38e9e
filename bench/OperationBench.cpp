// Copying and deleting beside the system's own tools, on the same items in the same run: 20,000
// small files, and one large file. TARNWELL_BENCH_FOLDER names the folder to do it in, that for
// temporary files if it is not set; TARNWELL_BENCH_LARGE gives the size of the large file in
// megabytes, 1024 if it is not set.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/linux/operation/RunOperation.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

std::string Setting(const char* name, const std::string& otherwise) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : otherwise;
}

// Exists while the benchmarks run.
class Originals {
 public:
  Originals() {
    path_ = Setting("TARNWELL_BENCH_FOLDER", fs::temp_directory_path()) + "/tarnwell-bench-XXXXXX";
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder for the benchmark");
    const std::string noise(8192, 'x');
    for (int folder = 0; folder < 100; ++folder) {
      const std::string sub = path_ + "/small/folder" + std::to_string(folder);
      fs::create_directories(sub);
      for (int file = 0; file < 200; ++file) {
        std::ofstream(sub + "/file" + std::to_string(file * 7919 % 10007) + ".txt")
            .write(noise.data(), 512 + (file * 131) % 7000);
      }
    }
    const std::string block(1 << 20, 'y');
    std::ofstream large(path_ + "/large");
    for (int at = std::stoi(Setting("TARNWELL_BENCH_LARGE", "1024")); at > 0; --at) large << block;
  }
  ~Originals() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Originals(const Originals&) = delete;
  Originals& operator=(const Originals&) = delete;

  static std::string Path(const std::string& name) {
    static const Originals originals;
    return originals.path_ + "/" + name;
  }

 private:
  std::string path_;
};

void Work(FileFunction function, const std::string& item, const std::string& to) {
  OperationUser nobody;
  const OperationRequest request{function, item + '\0', to + '\0', NoConfirmation};
  if (RunOperation(request, nobody).Code != 0) throw std::runtime_error("the operation failed");
}

void Tool(const std::string& command) {
  if (std::system(command.c_str()) != 0) throw std::runtime_error(command);
}

// The seconds that the work takes, with nothing left to be written from before it.
template <typename Work>
double Seconds(const Work& work) {
  sync();
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double MedianOf(std::vector<double> times) {
  std::ranges::sort(times);
  return times[times.size() / 2];
}

// Ours and the tool's take turns, and take turns at being the first, so that neither finds memory
// or disk better prepared; `after` clears up. The time shown is that of ours.
template <typename Before, typename Ours, typename After>
void Compare(benchmark::State& state, const Before& before, const Ours& ours,
             const std::string& tool, const After& after) {
  std::vector<double> own;
  std::vector<double> others;
  for (auto _ : state) {
    const bool toolFirst = own.size() % 2 == 1;
    for (const bool byTool : {toolFirst, !toolFirst}) {
      before();
      (byTool ? others : own).push_back(Seconds([&] { byTool ? Tool(tool) : ours(); }));
      after();
    }
    state.SetIterationTime(own.back());
  }
  state.counters["median"] = MedianOf(own);
  state.counters["tool"] = MedianOf(others);
  state.counters["ratio"] = MedianOf(own) / MedianOf(others);
  // Less disturbed by what else the machine does.
  state.counters["ratio_of_best"] = std::ranges::min(own) / std::ranges::min(others);
}

void Copy(benchmark::State& state, const std::string& name) {
  const std::string from = Originals::Path(name);
  const std::string to = Originals::Path("copy");
  const auto clear = [&] { fs::remove_all(to); };
  Compare(
      state, clear, [&] { Work(FileFunction::Copy, from, to); }, "cp -a " + from + " " + to, clear);
}

void Delete(benchmark::State& state) {
  const std::string to = Originals::Path("copy");
  Compare(
      state, [&] { Tool("cp -a " + Originals::Path("small") + " " + to); },
      [&] { Work(FileFunction::Delete, to, ""); }, "rm -rf " + to, [] {});
}

constexpr int times = 5;

BENCHMARK_CAPTURE(Copy, small_files, "small")->UseManualTime()->Iterations(times);
BENCHMARK_CAPTURE(Copy, large_file, "large")->UseManualTime()->Iterations(times);
BENCHMARK(Delete)->UseManualTime()->Iterations(times);

}  // namespace
}  // namespace tarnwell::platform
