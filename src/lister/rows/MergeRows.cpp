#include "lister/rows/MergeRows.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "lister/rows/RowRuns.h"

namespace tarnwell::lister {
namespace {

// A set of rows.
class RowSet {
 public:
  RowSet(const FileRows& rows, const std::vector<RowId>& members)
      : has_(static_cast<std::size_t>(rows.StoreSize()) + 1) {
    for (const RowId row : members) {
      if (row != NoRow) has_[static_cast<std::size_t>(row)] = 1;
    }
  }
  bool Has(RowId row) const { return has_[static_cast<std::size_t>(row)] != 0; }

 private:
  std::vector<char> has_;
};

// Of a row that is in use. The row itself is not looked at, which counts with a million of them.
bool IsShown(const FileRows& rows, RowId row) {
  return rows.PositionOf(row) >= 0;
}

void Reorder(FileRows& rows, std::vector<RowId> shown, ListerView& view) {
  if (shown == rows.Order()) return;
  view.BeginReorder(RootRow);
  rows.SetShown(std::move(shown));
  view.EndReorder();
}

void HideOthers(FileRows& rows, const RowSet& staying, ListerView& view) {
  const auto goes = [&](int position) { return !staying.Has(rows.At(position)); };
  std::vector<RowRange> runs = RunsOf(rows.Count(), goes);
  if (runs.size() > MostRuns) {
    std::vector<RowId> shown = rows.Order();
    std::stable_partition(shown.begin(), shown.end(), [&](RowId row) { return staying.Has(row); });
    Reorder(rows, std::move(shown), view);
    runs = RunsOf(rows.Count(), goes);
  }
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    view.BeginRemove(RootRow, run->First, run->Last);
    rows.Hide(run->First, run->Last);
    view.EndRemove();
  }
}

void Show(FileRows& rows, int position, const std::vector<RowId>& coming, ListerView& view) {
  view.BeginInsert(RootRow, position, position + static_cast<int>(coming.size()) - 1);
  rows.Show(position, coming);
  view.EndInsert();
}

// The rows on show are among those wanted, in the same order.
void ShowOthers(FileRows& rows, std::vector<RowId> wanted, ListerView& view) {
  const std::vector<RowRange> runs = RunsOf(static_cast<int>(wanted.size()), [&](int position) {
    return !IsShown(rows, wanted[static_cast<std::size_t>(position)]);
  });
  if (runs.size() <= MostRuns) {
    for (const RowRange& run : runs) {
      Show(rows, run.First, {wanted.begin() + run.First, wanted.begin() + run.Last + 1}, view);
    }
    return;
  }
  std::vector<RowId> coming;
  std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(coming),
               [&](RowId row) { return !IsShown(rows, row); });
  Show(rows, rows.Count(), coming, view);
  Reorder(rows, std::move(wanted), view);
}

// `order` is that of all rows, `shown` that of those on show.
void Arrange(FileRows& rows, std::vector<RowId> order, std::vector<RowId> shown, ListerView& view) {
  HideOthers(rows, RowSet(rows, shown), view);
  const RowSet staying(rows, order);
  for (const RowId row : rows.All()) {
    if (!staying.Has(row)) rows.Forget(row);
  }
  rows.SetAll(std::move(order));
  std::vector<RowId> before;
  std::copy_if(shown.begin(), shown.end(), std::back_inserter(before),
               [&](RowId row) { return IsShown(rows, row); });
  Reorder(rows, std::move(before), view);
  ShowOthers(rows, std::move(shown), view);
}

}  // namespace

void ArrangeRows(FileRows& rows, std::vector<RowId> order, const NameFilter& filter,
                 ListerView& view) {
  std::vector<RowId> shown = rows.Taken(filter, order);
  Arrange(rows, std::move(order), std::move(shown), view);
}

void MergeRows(FileRows& rows, FileRows&& fresh, std::vector<RowId> partners, ListerView& view) {
  // What is gone goes first: its names will not be there any more.
  const RowSet staying(rows, partners);
  const auto those = [&](std::vector<RowId> order) {
    std::erase_if(order, [&](RowId row) { return !staying.Has(row); });
    return order;
  };
  Arrange(rows, those(rows.All()), those(rows.Order()), view);

  const std::vector<RowId> changed = rows.BecomeLike(fresh, partners);
  const auto here = [&](std::vector<RowId> order) {
    for (RowId& row : order) row = partners[static_cast<std::size_t>(row - 1)];
    return order;
  };
  Arrange(rows, here(fresh.All()), here(fresh.Order()), view);

  int first = rows.Count(), last = -1;
  for (const RowId row : changed) {
    if (!IsShown(rows, row)) continue;
    first = std::min(first, rows.PositionOf(row));
    last = std::max(last, rows.PositionOf(row));
  }
  if (first <= last) view.CellsChanged(RootRow, first, last);
}

}  // namespace tarnwell::lister
