// Searching a tree beside `find` and `grep` on the same one, in turns. TARNWELL_BENCH_TREE names
// it, else /usr.
#include <benchmark/benchmark.h>
#include <glib.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/linux/search/LinuxFileSearch.h"

namespace tarnwell::platform {
namespace {

// In names and files of some trees, and rare.
const std::string searchedName = "thread.h", searchedText = "memory_resource";

std::string SearchedTree() {
  const char* const named = std::getenv("TARNWELL_BENCH_TREE");
  return named != nullptr ? named : "/usr";
}

std::uint64_t RunSearch(SearchRequest request) {
  request.Folder = SearchedTree();
  request.TakesHidden = true;
  SearchUpdate last;
  const auto search =
      LinuxFileSearch().Start(std::move(request), [&](SearchUpdate update) { last = update; });
  while (!last.IsDone) g_main_context_iteration(nullptr, TRUE);
  return last.Counts.Items;
}

double TimeOf(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void RunTool(const std::string& command) {
  const int status = std::system((command + " >/dev/null 2>&1").c_str());
  if (status < 0) throw std::runtime_error(command);
}

// The time shown is ours; `ratio` is of the medians, `ratio_of_best` of the shortest.
void TakeTurns(benchmark::State& state, const std::string& command, const SearchRequest& request) {
  std::vector<double> ours, theirs;
  std::uint64_t items = 0;
  RunTool(command);  // the cache is warm
  for ([[maybe_unused]] const auto step : state) {
    theirs.push_back(TimeOf([&] { RunTool(command); }));
    ours.push_back(TimeOf([&] { items = RunSearch(request); }));
    state.SetIterationTime(ours.back());
  }
  for (std::vector<double>* const times : {&ours, &theirs}) std::ranges::sort(*times);
  state.counters["items"] = static_cast<double>(items);
  state.counters["ratio"] = ours[ours.size() / 2] / theirs[theirs.size() / 2];
  state.counters["ratio_of_best"] = ours.front() / theirs.front();
}

void SearchNames(benchmark::State& state) {
  SearchRequest request;
  request.MakeNameTest = [] {
    return [](std::string_view name, bool) { return name.find(searchedName) != name.npos; };
  };
  TakeTurns(state, "find '" + SearchedTree() + "' -xdev -name '*" + searchedName + "*'", request);
}
BENCHMARK(SearchNames)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(9);

// Binary files are looked into, as `grep` does.
void SearchTexts(benchmark::State& state) {
  SearchRequest request;
  request.Content = searchedText;
  request.LooksIntoBinary = true;
  TakeTurns(state, "grep -rlF " + searchedText + " '" + SearchedTree() + "'", request);
}
BENCHMARK(SearchTexts)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

}  // namespace
}  // namespace tarnwell::platform
