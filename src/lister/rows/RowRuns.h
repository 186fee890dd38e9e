// Runs of rows that come, go or are marked, as a view is told of them.
#pragma once

#include <cstddef>
#include <vector>

#include "lister/rows/ListerView.h"

namespace tarnwell::lister {

// Each run of rows that come or go costs a look at all others, and the view a step. With more runs
// than this the rows are gathered in one run first.
inline constexpr std::size_t MostRuns = 16;

// The runs of positions, of 0 to `count` - 1, for which the rule holds.
template <typename Rule>
std::vector<RowRange> RunsOf(int count, Rule rule) {
  std::vector<RowRange> runs;
  for (int position = 0; position < count; ++position) {
    if (!rule(position)) continue;
    if (runs.empty() || runs.back().Last != position - 1) runs.push_back({position, position});
    runs.back().Last = position;
  }
  return runs;
}

// The runs of positions that are marked.
inline std::vector<RowRange> RunsOf(const std::vector<char>& marks) {
  return RunsOf(static_cast<int>(marks.size()),
                [&](int position) { return marks[static_cast<std::size_t>(position)] != 0; });
}

}  // namespace tarnwell::lister
