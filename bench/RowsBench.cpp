// The rows of a file list, without a disk: sorting, filtering, reading again.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "lister/ListerControl.h"
#include "lister/rows/MergeRows.h"
#include "lister/rows/NoView.h"
#include "platform/linux/system/LinuxCollation.h"

namespace tarnwell::lister {
namespace {

// Numbered files, pictures by date and plain words, in no order.
std::vector<std::string> MakeNames(std::int64_t count) {
  std::mt19937 random(7);
  std::vector<std::string> names;
  for (std::int64_t at = 0; at < count; ++at) {
    const std::string unique = std::to_string(at);
    switch (at % 3) {
      case 0:
        names.push_back("file " + unique + ".txt");
        break;
      case 1:
        names.push_back("IMG_2024" + std::to_string(1000 + random() % 300) + "_" +
                        std::to_string(100'000 + random() % 140'000) + "-" + unique + ".jpg");
        break;
      default: {
        std::string word;
        for (auto left = 3 + random() % 12; left > 0; --left) {
          word += static_cast<char>((random() % 8 == 0 ? 'A' : 'a') + random() % 26);
        }
        names.push_back(word + unique + (random() % 2 == 0 ? ".cpp" : ".h"));
      }
    }
  }
  std::shuffle(names.begin(), names.end(), random);
  return std::vector<std::string>(names);  // copied, so that they lie in memory as they come
}

platform::FolderEntry EntryOf(const std::string& name, std::size_t at) {
  using platform::ItemKind;
  return {.Name = name, .Kind = at % 20 == 0 ? ItemKind::Folder : ItemKind::File};
}

FileRows MakeRows(const std::vector<std::string>& names) {
  FileRows rows;
  for (std::size_t at = 0; at < names.size(); ++at) rows.Add(EntryOf(names[at], at));
  return rows;
}

FileRows MakeReadRows(std::int64_t count) {
  FileRows rows = MakeRows(MakeNames(count));
  std::mt19937_64 random(8);
  for (RowId row = 1; row <= rows.StoreSize(); ++row) {
    rows.SetAttributes(row, {.Kind = rows.Row(row).Kind,
                             .Size = random() % 50'000,
                             .Modified = static_cast<std::int64_t>(random() >> 2)});
  }
  return rows;
}

const platform::LinuxCollation Letters;
const NameOrder Names(Letters);
const std::vector<SortKey> ByName = {{}};

std::size_t BytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void SortOfNamesByBytes(benchmark::State& state) {
  const std::vector<std::string> names = MakeNames(state.range(0));
  for (auto _ : state) {
    std::vector<std::string> sorted = names;
    std::sort(sorted.begin(), sorted.end());
    benchmark::DoNotOptimize(sorted.data());
  }
}

void SortRows(benchmark::State& state, const std::vector<SortKey>& keys) {
  const FileRows rows = MakeReadRows(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(rows.Sorted(keys, Names));
}

void SortRowsByName(benchmark::State& state) {
  SortRows(state, ByName);
}
void SortRowsByExtensionAndSize(benchmark::State& state) {
  SortRows(state, {{HeadingId::Extension}, {HeadingId::Size, true}});
}

// From the entries of a folder to rows in order.
void MakeSortedRows(benchmark::State& state) {
  const std::vector<std::string> names = MakeNames(state.range(0));
  std::size_t bytes = 0;
  for (const std::string& name : names) bytes += name.size();
  for (auto _ : state) {
    FileRows rows = MakeRows(names);
    rows.SetOrder(rows.Sorted(ByName, Names));
    state.PauseTiming();
    rows = {};
    state.ResumeTiming();
  }
  const std::size_t before = BytesInUse();
  FileRows rows = MakeRows(names);
  rows.SetOrder(rows.Sorted(ByName, Names));
  const std::size_t taken = BytesInUse() - before - bytes;
  state.counters["bytes an item beside its name"] = double(taken) / double(names.size());
}

// The longest time for which no messages are let through, in milliseconds.
void LongestStretchOfASort(benchmark::State& state) {
  const FileRows rows = MakeReadRows(state.range(0));
  double longest = 0;
  for (auto _ : state) {
    auto last = std::chrono::steady_clock::now();
    const auto look = [&] {
      const auto now = std::chrono::steady_clock::now();
      longest = std::max(longest, std::chrono::duration<double, std::milli>(now - last).count());
      last = now;
      return true;
    };
    benchmark::DoNotOptimize(rows.Sorted(ByName, Names, look));
    look();
  }
  state.counters["milliseconds"] = longest;
}

void KeysOfNames(benchmark::State& state) {
  const std::vector<std::string> names = MakeNames(state.range(0));
  std::string key;
  for (auto _ : state) {
    for (const std::string& name : names) {
      key.clear();
      Names.AppendKey(name, key);
      benchmark::DoNotOptimize(key.data());
    }
  }
}

void RetypeFilter(benchmark::State& state) {
  FileRows rows = MakeReadRows(state.range(0));
  rows.SetOrder(rows.Sorted(ByName, Names));
  NoView view;
  NameFilter filter;
  const std::vector<std::string> texts = {"f", "fi", "*1*.txt", "IMG*##.jpg", "ab; *.h"};
  std::size_t next = 0;
  for (auto _ : state) {
    filter.SetText(texts[next++ % texts.size()]);
    ArrangeRows(rows, rows.All(), filter, view);
  }
}

void CountExtensions(benchmark::State& state) {
  const FileRows rows = MakeReadRows(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(rows.Extensions(Names));
}

// Every `step`th item has gone, and as many others have come.
void ReadAgain(benchmark::State& state, std::size_t step) {
  std::vector<std::string> names = MakeNames(state.range(0));
  FileRows rows = MakeRows(names);
  rows.SetOrder(rows.Sorted(ByName, Names));
  NoView view;
  int round = 0;
  for (auto _ : state) {
    state.PauseTiming();
    ++round;
    for (std::size_t at = 0; at < names.size(); at += step) {
      names[at] = "new" + std::to_string(round) + names[at].substr(names[at].size() / 2) +
                  std::to_string(at);
    }
    FileRows fresh = MakeRows(names);
    fresh.SetOrder(fresh.Sorted(ByName, Names));
    state.ResumeTiming();
    std::vector<RowId> partners = rows.PairWith(fresh);
    fresh.TakeOver(rows, partners);
    MergeRows(rows, std::move(fresh), std::move(partners), view);
  }
}
void ReadAgainFewChanges(benchmark::State& state) {
  ReadAgain(state, 20'000);
}
void ReadAgainManyChanges(benchmark::State& state) {
  ReadAgain(state, 3);
}

// A hundred items have changed on disk.
void PlaceAHundredRows(benchmark::State& state) {
  FileRows rows = MakeRows(MakeNames(state.range(0)));
  rows.SetOrder(rows.Sorted(ByName, Names));
  NoView view;
  std::vector<RowId> changed;
  for (RowId row = 1; changed.size() < 100; row += rows.StoreSize() / 100) changed.push_back(row);
  for (auto _ : state) ArrangeRows(rows, rows.Reordered(changed, ByName, Names), {}, view);
}

void Counts(benchmark::internal::Benchmark* bench) {
  bench->Unit(benchmark::kMillisecond)->Arg(100'000)->Arg(1'000'000);
}

BENCHMARK(SortOfNamesByBytes)->Apply(Counts);
BENCHMARK(SortRowsByName)->Apply(Counts);
BENCHMARK(SortRowsByExtensionAndSize)->Apply(Counts);
BENCHMARK(MakeSortedRows)->Apply(Counts);
BENCHMARK(LongestStretchOfASort)->Apply(Counts);
BENCHMARK(KeysOfNames)->Apply(Counts);
BENCHMARK(RetypeFilter)->Apply(Counts);
BENCHMARK(CountExtensions)->Apply(Counts);
BENCHMARK(ReadAgainFewChanges)->Apply(Counts);
BENCHMARK(ReadAgainManyChanges)->Apply(Counts);
BENCHMARK(PlaceAHundredRows)->Apply(Counts);

}  // namespace
}  // namespace tarnwell::lister
