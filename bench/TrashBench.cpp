// Reading a trash of 100,000 files, beside a bare loop of the same calls.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/trash/ReadTrash.h"
#include "platform/linux/trash/TrashTable.h"

namespace tarnwell::platform {
namespace {

constexpr int trashedItems = 100'000;

// Removed with all it holds.
class TrashOfMany {
 public:
  TrashOfMany() : path_(std::filesystem::temp_directory_path() / "tarnwell-trash-XXXXXX") {
    if (mkdtemp(path_.data()) == nullptr) std::abort();
    std::filesystem::create_directories(path_ + "/Trash/files");
    std::filesystem::create_directories(path_ + "/Trash/info");
    for (int number = 0; number < trashedItems; ++number) {
      const std::string name = "holiday picture " + std::to_string(number) + ".jpg";
      std::ofstream(path_ + "/Trash/files/" + name) << "x";
      std::ofstream(path_ + "/Trash/info/" + name + ".trashinfo")
          << "[Trash Info]\nPath=/home/someone/Pictures/2026/" << number
          << "/holiday%20picture.jpg\nDeletionDate=2026-11-22T04:00:00\n";
    }
  }
  TrashOfMany(const TrashOfMany&) = delete;
  TrashOfMany& operator=(const TrashOfMany&) = delete;
  ~TrashOfMany() { std::filesystem::remove_all(path_); }
  std::string Path() const { return path_ + "/Trash"; }

 private:
  std::string path_;
};

const std::string& ManyTrashed() {
  static const TrashOfMany trash;
  static const std::string path = trash.Path();
  return path;
}

void BareTrash(benchmark::State& state) {
  const std::string path = ManyTrashed();
  for ([[maybe_unused]] const auto step : state) {
    const Descriptor files(open((path + "/files").c_str(), O_RDONLY | O_DIRECTORY));
    const Descriptor notes(open((path + "/info").c_str(), O_RDONLY | O_DIRECTORY));
    FolderBuffer buffer;
    std::array<char, 4096> content;
    const ErrorNumber error = buffer.Read(notes.Get(), [&](const dirent64& item) {
      struct stat found {};
      const Descriptor note(openat(notes.Get(), item.d_name, O_RDONLY | O_NOFOLLOW));
      fstat(note.Get(), &found);
      benchmark::DoNotOptimize(read(note.Get(), content.data(), content.size()));
      return true;
    });
    const ErrorNumber other = buffer.Read(files.Get(), [&](const dirent64& item) {
      struct stat found {};
      return fstatat(files.Get(), item.d_name, &found, AT_SYMLINK_NOFOLLOW) == 0;
    });
    if (error != NoError || other != NoError) state.SkipWithError("the trash cannot be read");
  }
}
BENCHMARK(BareTrash)->Unit(benchmark::kMillisecond)->UseRealTime();

// With the rows that a view tells of.
void ReadTrash(benchmark::State& state) {
  for ([[maybe_unused]] const auto step : state) {
    const TrashPath path(ManyTrashed(), geteuid());
    base::Status status;
    const OpenTrash trash = OpenTrash::Of(path, status);
    std::uint64_t lastId = 0;
    TrashTable table(lastId);
    TrashChanges changes;
    table.BeginAll();
    TrashReader(path, trash).ReadAll([&](std::vector<TrashEntry> entries) {
      table.Take(std::move(entries), changes);
      return true;
    });
    table.EndAll(changes);
    if (changes.Items.size() != trashedItems) state.SkipWithError("not all of it was read");
  }
}
BENCHMARK(ReadTrash)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tarnwell::platform
