// Comparing two lists of 100,000 files, beside the least that it takes: one table of the names.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lister/rows/Comparison.h"
#include "lister/rows/FileRows.h"

namespace tarnwell::lister {
namespace {

constexpr int Items = 100'000;

// Every tenth item has a name of its own, every seventh another size.
FileRows MakeRows(std::uint64_t variant) {
  FileRows rows("/box");
  for (int number = 0; number < Items; ++number) {
    std::string name = "IMG_2024_" + std::to_string(number * 7919LL % Items) + ".jpeg";
    if (number % 10 == 0) name += std::to_string(variant);
    rows.Add({.Name = name});
    rows.SetAttributes(
        number + 1, {.Size = static_cast<std::uint64_t>(number) + (number % 7 == 0 ? variant : 0),
                     .Modified = 1'700'000'000'000'000'000});
  }
  return rows;
}

void TableOfNames(benchmark::State& state) {
  const FileRows rows = MakeRows(1);
  for ([[maybe_unused]] const auto step : state) {
    std::unordered_map<std::string_view, RowId> table;
    for (RowId row = 1; row <= rows.StoreSize(); ++row) table.emplace(rows.Name(row), row);
    benchmark::DoNotOptimize(table);
  }
}
BENCHMARK(TableOfNames)->Unit(benchmark::kMillisecond);

void Compare(benchmark::State& state, const base::PathSyntax& syntax) {
  FileRows here = MakeRows(1), there = MakeRows(2);
  for ([[maybe_unused]] const auto step : state) {
    std::vector<CompareRecord> records = MakeRecords(here, syntax);
    benchmark::DoNotOptimize(MarkRows(there, records, 3, syntax));
    benchmark::DoNotOptimize(MarkOwnRows(here, records, syntax));
  }
}
BENCHMARK_CAPTURE(Compare, CaseCounts, base::PathSyntax::Posix())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compare, CaseDoesNotCount, base::PathSyntax::Windows())
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnwell::lister
