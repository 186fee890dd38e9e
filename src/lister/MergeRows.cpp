#include "lister/MergeRows.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tarnwell::lister {
namespace {

// Each run of rows that come or go costs a look at all others. With more runs than this the rows
// are gathered in one run at the end first.
constexpr std::size_t MostRuns = 16;

// Positions from First to Last.
struct Run {
  int First;
  int Last;
};

// The runs of positions for which the rule holds.
template <typename Rule>
std::vector<Run> RunsOf(int count, Rule rule) {
  std::vector<Run> runs;
  for (int position = 0; position < count; ++position) {
    if (!rule(position)) continue;
    if (runs.empty() || runs.back().Last != position - 1) runs.push_back({position, position});
    runs.back().Last = position;
  }
  return runs;
}

void Reorder(FileRows& rows, std::vector<RowId> order, ListerView& view) {
  if (order == rows.Order()) return;
  view.BeginReorder(RootRow);
  rows.SetOrder(std::move(order));
  view.EndReorder();
}

void RemoveGone(FileRows& rows, const std::vector<RowId>& partners, ListerView& view) {
  std::vector<char> stays(static_cast<std::size_t>(rows.StoreSize()) + 1);
  for (const RowId row : partners) {
    if (row != NoRow) stays[static_cast<std::size_t>(row)] = 1;
  }
  const auto isGone = [&](int position) {
    return stays[static_cast<std::size_t>(rows.At(position))] == 0;
  };
  std::vector<Run> runs = RunsOf(rows.Count(), isGone);
  if (runs.size() > MostRuns) {
    std::vector<RowId> order = rows.Order();
    std::stable_partition(order.begin(), order.end(),
                          [&](RowId row) { return stays[static_cast<std::size_t>(row)] != 0; });
    Reorder(rows, std::move(order), view);
    runs = RunsOf(rows.Count(), isGone);
  }
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    view.BeginRemove(RootRow, run->First, run->Last);
    rows.Remove(run->First, run->Last);
    view.EndRemove();
  }
}

void Insert(FileRows& rows, int position, const std::vector<FileRow>& made, ListerView& view) {
  view.BeginInsert(RootRow, position, position + static_cast<int>(made.size()) - 1);
  rows.Insert(position, made);
  view.EndInsert();
}

// `wanted`: the rows of the final order, those that are new without a number.
struct Wanted {
  RowId Row;
  FileRow Content;
};

void InsertNew(FileRows& rows, const std::vector<Wanted>& wanted, ListerView& view) {
  const int count = static_cast<int>(wanted.size());
  const auto at = [&](int position) -> const Wanted& {
    return wanted[static_cast<std::size_t>(position)];
  };
  const std::vector<Run> runs =
      RunsOf(count, [&](int position) { return at(position).Row == NoRow; });
  const bool oneByOne = runs.size() <= MostRuns;
  std::vector<FileRow> made;
  for (const Run& run : runs) {
    for (int position = run.First; position <= run.Last; ++position) {
      made.push_back(at(position).Content);
    }
    if (!oneByOne) continue;
    Insert(rows, run.First, made, view);
    made.clear();
  }
  if (oneByOne) return;
  int next = rows.Count();
  Insert(rows, next, made, view);
  std::vector<RowId> order;
  order.reserve(wanted.size());
  for (const Wanted& entry : wanted) {
    order.push_back(entry.Row == NoRow ? rows.At(next++) : entry.Row);
  }
  Reorder(rows, std::move(order), view);
}

}  // namespace

void MergeRows(FileRows& rows, FileRows&& fresh, const std::vector<RowId>& partners,
               ListerView& view) {
  std::vector<Wanted> wanted;
  std::vector<RowId> staying;
  for (const RowId row : fresh.Order()) {
    const RowId partner = partners[static_cast<std::size_t>(row - 1)];
    wanted.push_back({partner, fresh.Row(row)});
    if (partner != NoRow) staying.push_back(partner);
  }
  RemoveGone(rows, partners, view);
  const std::vector<RowId> changed = rows.BecomeLike(fresh, partners);
  Reorder(rows, std::move(staying), view);
  InsertNew(rows, wanted, view);

  if (changed.empty()) return;
  int first = rows.Count(), last = 0;
  for (const RowId row : changed) {
    first = std::min(first, rows.PositionOf(row));
    last = std::max(last, rows.PositionOf(row));
  }
  view.CellsChanged(RootRow, first, last);
}

}  // namespace tarnwell::lister
