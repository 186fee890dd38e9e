// Copying and deleting beside the system's own tools, on the same items in the same run: 20,000
// small files, and one large file. TARNWELL_BENCH_FOLDER names the folder to do it in, that for
// temporary files if it is not set; TARNWELL_BENCH_LARGE gives the size of the large file in
// megabytes, 1024 if it is not set.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "platform/linux/RunOperation.h"

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

// Times `measured` alone; `before` and `after` set the scene.
template <typename Before, typename Measured, typename After>
void Time(benchmark::State& state, const Before& before, const Measured& measured,
          const After& after) {
  for (auto _ : state) {
    before();
    const auto start = std::chrono::steady_clock::now();
    measured();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(taken.count());
    after();
  }
}

void Copy(benchmark::State& state, const std::string& name, bool byTool) {
  const std::string from = Originals::Path(name);
  const std::string to = Originals::Path("copy");
  Time(
      state, [] {},
      [&] {
        if (byTool) {
          Tool("cp -a " + from + " " + to);
        } else {
          Work(FileFunction::Copy, from, to);
        }
      },
      [&] { fs::remove_all(to); });
}

void Delete(benchmark::State& state, bool byTool) {
  const std::string to = Originals::Path("copy");
  Time(
      state, [&] { Tool("cp -a " + Originals::Path("small") + " " + to); },
      [&] {
        if (byTool) {
          Tool("rm -rf " + to);
        } else {
          Work(FileFunction::Delete, to, "");
        }
      },
      [] {});
}

constexpr int times = 5;

BENCHMARK_CAPTURE(Copy, small_files, "small", false)->UseManualTime()->Iterations(times);
BENCHMARK_CAPTURE(Copy, small_files_cp, "small", true)->UseManualTime()->Iterations(times);
BENCHMARK_CAPTURE(Copy, large_file, "large", false)->UseManualTime()->Iterations(times);
BENCHMARK_CAPTURE(Copy, large_file_cp, "large", true)->UseManualTime()->Iterations(times);
BENCHMARK_CAPTURE(Delete, small_files, false)->UseManualTime()->Iterations(times);
BENCHMARK_CAPTURE(Delete, small_files_rm, true)->UseManualTime()->Iterations(times);

}  // namespace
}  // namespace tarnwell::platform
