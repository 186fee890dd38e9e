// Reading a folder into a file list with all attributes, and measuring it, beside a bare loop over
// the same folder.
//
// usage: tarnwell_open_bench FOLDER
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ListOfFiles.h"
#include "platform/afar/FarFileSystem.h"
#include "platform/win32/afar/WindowsFarPlaces.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/WindowsFileSystem.h"
#include "platform/win32/system/WindowsClock.h"
#include "platform/win32/system/WindowsCollation.h"

namespace tarnwell::lister {
namespace {

constexpr int Rounds = 7;

std::int64_t CountByBareLoop(const std::string& folder) {
  std::int64_t count = 0;
  WIN32_FIND_DATAW found;
  const platform::FindHandle items(FindFirstFileExW(platform::LongPath(folder + "\\*").c_str(),
                                                    FindExInfoBasic, &found, FindExSearchNameMatch,
                                                    nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (!items) return 0;
  do {
    count += found.cFileName[0] != L'.' ? 1 : 0;
  } while (FindNextFileW(items.Get(), &found) != 0);
  return count;
}

double SecondsOf(const std::function<void()>& work) {
  const SteadyClock::time_point start = SteadyClock::now();
  work();
  return std::chrono::duration<double>(SteadyClock::now() - start).count();
}

// Sorts them.
double MedianOf(std::vector<double>& times) {
  std::ranges::sort(times);
  return times[times.size() / 2];
}

void Tell(const char* what, std::vector<double> times, double floor) {
  const double median = MedianOf(times);
  std::printf("%-28s %8.1f ms   %.2f of the floor\n", what, 1000 * median, median / floor);
}

int Run(const std::string& folder) {
  const std::int64_t count = CountByBareLoop(folder);
  if (count == 0) return 1;
  NoPump pump;
  const auto own = std::make_shared<platform::WindowsFileSystem>();
  platform::FarFileSystem files(
      own, platform::FarCalls(pump, {}, std::make_shared<platform::WindowsFarPlaces>()));
  platform::WindowsClock clock;
  platform::WindowsCollation order;
  ListOfFiles list(files, pump, clock, order);

  std::vector<double> floor, names, whole, taken, measured;
  for (int round = 0; round < Rounds; ++round) {
    floor.push_back(SecondsOf([&] { CountByBareLoop(folder); }));
    taken.push_back(SecondsOf([&] { own->ReadFolder(folder, [](const auto&) { return true; }); }));
    names.push_back(list.Read(folder, count, true));
    whole.push_back(list.Read(folder, count, false));
    measured.push_back(SecondsOf([&] {
      platform::FolderTotal total;
      own->MeasureFolder(
          folder, [](const auto&) { return true; }, total);
    }));
  }
  const double least = MedianOf(floor);
  std::printf("%lld files\n", static_cast<long long>(count));
  Tell("bare FindFirstFileExW loop", floor, least);
  Tell("read", taken, least);
  Tell("sorted rows", names, least);
  Tell("rows with all attributes", whole, least);
  Tell("measured", measured, least);
  return 0;
}

}  // namespace
}  // namespace tarnwell::lister

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: tarnwell_open_bench FOLDER\n");
    return 2;
  }
  return tarnwell::lister::Run(arguments[1]);
}
