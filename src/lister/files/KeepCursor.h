// Changes of the rows on show that leave the cursor on its item or, where that goes, at its place.
#pragma once

#include <algorithm>

#include "lister/files/FileListState.h"

namespace tarnwell::lister {

// Calls `change`, which alters what is on show and tells the view so. `stays` says of a row on show
// whether it will be on show afterwards.
template <typename Stays, typename Change>
void KeepCursor(FileListState& files, Stays stays, Change change) {
  const bool had = files.Rows.Has(files.Current);
  const bool goes = had && !stays(files.Current);
  RowId above = NoRow;
  if (goes) {
    int position = files.Rows.PositionOf(files.Current);
    while (above == NoRow && --position >= 0) {
      if (stays(files.Rows.At(position))) above = files.Rows.At(position);
    }
  }
  if (!had || goes) files.Current = NoRow;  // the view must not look for it among those that go
  change();
  ++files.Orders;
  if (had && !goes) return;
  if (goes && files.Rows.Count() > 0) {
    const int place = above == NoRow ? 0 : files.Rows.PositionOf(above) + 1;
    files.Current = files.Rows.At(std::min(place, files.Rows.Count() - 1));
  } else {
    files.Current = files.Remembered();
  }
  if (goes || files.Current != NoRow) files.View().CurrentChanged();
}

// The same, while what the user sees keeps its place as far as it is still there.
template <typename Stays, typename Change>
void KeepCursorAndPlace(FileListState& files, Stays stays, Change change) {
  files.View().BeginUpdate();
  KeepCursor(files, stays, change);
  files.View().EndUpdate();
}

// Rows that the filter takes.
inline auto TakenBy(const FileListState& files) {
  return [&files](RowId row) {
    return files.List.Filter.Takes(files.Rows.OwnName(row), files.Rows.Row(row).IsFolder());
  };
}

}  // namespace tarnwell::lister
