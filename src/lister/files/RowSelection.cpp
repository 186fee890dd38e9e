#include "lister/files/RowSelection.h"

#include <algorithm>

#include "lister/files/FileStatus.h"

namespace tarnwell::lister {

std::vector<RowRange> RowSelection::Ranges() const {
  std::vector<RowRange> ranges;
  int left = files_.Rows.SelectedCount();
  for (int position = 0; left > 0 && position < files_.Rows.Count(); ++position) {
    if (!files_.Rows.Row(files_.Rows.At(position)).IsSelected) continue;
    if (ranges.empty() || ranges.back().Last != position - 1) ranges.push_back({position, 0});
    ranges.back().Last = position;
    --left;
  }
  return ranges;
}

RowId RowSelection::Next(std::int32_t& position) const {
  if (files_.Rows.SelectedCount() == 0) return NoRow;
  for (position = std::max(position, 0); position < files_.Rows.Count();) {
    const RowId row = files_.Rows.At(position++);
    if (files_.Rows.Row(row).IsSelected) return row;
  }
  return NoRow;
}

template <typename Rule>
void RowSelection::SetEach(Rule rule) {
  bool changed = false;
  for (int position = 0; position < files_.Rows.Count(); ++position) {
    const RowId row = files_.Rows.At(position);
    const FileRow& item = files_.Rows.Row(row);
    const bool selected = rule(position, item);
    if (selected == item.IsSelected) continue;
    files_.Rows.SetSelected(row, selected);
    changed = true;
  }
  if (changed) Tell();
}

void RowSelection::SetAll(bool selected) {
  SetEach([selected](int, const FileRow&) { return selected; });
}

void RowSelection::SelectOnly(RowId row) {
  const RowId before = anchor_.Get();
  anchor_.Set(row);
  if (files_.Rows.SelectedCount() > 1 || !Has(before)) {
    const int place = files_.Rows.PositionOf(row);
    SetEach([place](int position, const FileRow&) { return position == place; });
  } else if (before != row) {  // the cursor goes from row to row
    files_.Rows.SetSelected(before, false);
    files_.Rows.SetSelected(row, true);
    Tell();
  }
}

void RowSelection::SelectThese(const std::vector<RowId>& rows) {
  anchor_.Set(rows.front());
  auto next = rows.begin();
  SetEach([&](int position, const FileRow&) {
    const bool isNext = next != rows.end() && files_.Rows.At(position) == *next;
    if (isNext) ++next;
    return isNext;
  });
}

RowId RowSelection::SelectMarked(CompareMarks mark, bool adds) {
  RowId first = NoRow;
  SetEach([&](int position, const FileRow& item) {
    const bool bearsIt = item.Marks.Shares(mark);
    if (bearsIt && first == NoRow) first = files_.Rows.At(position);
    return bearsIt || (adds && item.IsSelected);
  });
  if (first != NoRow) anchor_.Set(first);
  return first;
}

void RowSelection::Toggle(RowId row) {
  anchor_.Set(row);
  files_.Rows.SetSelected(row, !Has(row));
  Tell();
}

void RowSelection::SelectTo(RowId row, bool adds) {
  RowId start = anchor_.Get();
  if (start == NoRow) start = files_.Rows.Has(files_.Current) ? files_.Current : row;
  anchor_.Set(start);
  const auto [first, last] =
      std::minmax({files_.Rows.PositionOf(start), files_.Rows.PositionOf(row)});
  SetEach([first = first, last = last, adds](int position, const FileRow& item) {
    return (position >= first && position <= last) || (adds && item.IsSelected);
  });
}

void RowSelection::PutBack() {
  SetEach([](int, const FileRow& item) { return bool{item.WasSelected}; });
}

void RowSelection::Sweep(int from, int to, Sweeping sweeping, bool kept) {
  const auto [first, last] = std::minmax({from, to});
  SetEach([=, first = first, last = last](int position, const FileRow& item) {
    if (position < first || position > last) return kept && item.WasSelected;
    return sweeping == Sweeping::Toggles ? !item.WasSelected : sweeping == Sweeping::Selects;
  });
}

void RowSelection::Tell() {
  files_.View().SelectionChanged();
  ShowSummary(files_);
}

}  // namespace tarnwell::lister
