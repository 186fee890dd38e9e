// The rows of a list, read in place. A row that does not exist gives nothing, and nothing happens
// to it.
#pragma once

#include <string>

#include "lister/rows/Headings.h"
#include "lister/rows/ListerView.h"
#include "lister/rows/RowState.h"

namespace tarnwell::lister {

// What stands in the place of rows where there are none.
struct EmptyNote {
  std::string Text;       // for showing; empty while rows are there, or still to be read
  bool ByFilter = false;  // the filter hides all there is
};

class ListRows {
 public:
  virtual ~ListRows() = default;

  virtual int ChildCount(RowId parent) const = 0;
  virtual RowId Child(RowId parent, int position) const = 0;  // NoRow beyond the ends
  virtual RowId Parent(RowId row) const = 0;
  virtual int PositionOf(RowId row) const = 0;  // among the children of its parent; -1 for none
  virtual RowState StateOf(RowId row) const = 0;
  // Text of a cell, for showing: valid UTF-8.
  virtual std::string CellText(RowId row, HeadingId heading) const = 0;
  // The same for a cell that has less room than SampleText takes: dates drop their seconds.
  virtual std::string BriefText(RowId row, HeadingId heading) const = 0;
  // The row is a folder that was measured, but not all of it could be read.
  virtual bool IsSizePartial(RowId row) const = 0;
  virtual std::string PathOf(RowId row) const = 0;  // bytes
  // In words that the row is a link, and where it leads, by a look at the disk unless that is
  // another machine's; empty for what is none.
  virtual std::string LinkNote(RowId row) const = 0;
  virtual RowId CurrentRow() const = 0;
  virtual EmptyNote NoteOfEmptiness() const = 0;
  // The rows are items that were found below a folder, and belong to many.
  virtual bool ShowsFound() const { return false; }

  // The cursor moves to the row: a folder list opens it, a file list tells the item.
  virtual void MoveCurrent(RowId row) = 0;
  // Enter or a double click: a folder list opens and expands, a file list enters a folder and opens
  // a file in its application.
  virtual void Activate(RowId row) = 0;
  virtual void Expand(RowId row) = 0;
  virtual void Collapse(RowId row) = 0;
};

}  // namespace tarnwell::lister
