// Which rows of a file list are selected, and where ranges of them begin. Knows no mouse and no
// key. The view is told once of each change.
#pragma once

#include <cstdint>
#include <vector>

#include "lister/files/FileListState.h"
#include "lister/rows/PersistentRow.h"

namespace tarnwell::lister {

// What becomes of a row that is swept over.
enum class Sweeping { Selects, Unselects, Toggles };

class RowSelection {
 public:
  RowSelection(FileListState& files, const ListRows& rows) : files_(files), anchor_(rows) {}

  bool Has(RowId row) const { return files_.Rows.Has(row) && files_.Rows.Row(row).IsSelected; }
  std::vector<RowRange> Ranges() const;
  // See ListInput::NextSelected.
  RowId Next(std::int32_t& position) const;

  void SetAll(bool selected);
  // Rows that exist. They become what ranges start from.
  void SelectOnly(RowId row);
  void Toggle(RowId row);
  // These and no others, by position from the top; at least one.
  void SelectThese(const std::vector<RowId>& rows);
  // Those on show that bear the mark; `adds`: the others stay as they are. Gives the first one.
  RowId SelectMarked(CompareMarks mark, bool adds);
  // From the row last chosen by one of those above to this one; `adds`: the others stay as they
  // are.
  void SelectTo(RowId row, bool adds);

  // Remembers what is selected now, for the two below.
  void Keep() { files_.Rows.KeepSelection(); }
  void PutBack();
  // The rows from one position to the other, which may lie beyond the ends, are swept over, and
  // what they become starts from what they were; the others are what they were if that is `kept`,
  // or not selected.
  void Sweep(int from, int to, Sweeping sweeping, bool kept);

 private:
  // Each row becomes what the rule gives for its position.
  template <typename Rule>
  void SetEach(Rule rule);
  void Tell();

  FileListState& files_;
  PersistentRow anchor_;
};

}  // namespace tarnwell::lister
