// What a list tells the widget that paints it. Calls come before and after the rows change, so that
// the widget's model is never asked about rows that are halfway between two states.
#pragma once

#include <cstdint>

namespace tarnwell::lister {

// Names a row of a list: a node of the folder tree or an item of a file list. The number stays with
// the row until the row is removed or the list is reset. Row 0 is the invisible root above all
// rows.
using RowId = std::int32_t;
inline constexpr RowId RootRow = 0;
inline constexpr RowId NoRow = -1;

// Positions among the rows on show, First to Last; none if Last is the smaller one.
struct RowRange {
  int First = 0;
  int Last = -1;
};

class ListerView {
 public:
  virtual ~ListerView() = default;

  virtual void BeginReset() = 0;  // all rows go, others come
  virtual void EndReset() = 0;
  virtual void BeginInsert(RowId parent, int first, int last) = 0;
  virtual void EndInsert() = 0;
  virtual void BeginRemove(RowId parent, int first, int last) = 0;
  virtual void EndRemove() = 0;
  // Between these two the rows change by the calls below, and what the user sees should keep its
  // place as far as it is still there.
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate() = 0;
  // The order of the children of `parent` changes.
  virtual void BeginReorder(RowId parent) = 0;
  virtual void EndReorder() = 0;
  virtual void CellsChanged(RowId parent, int first, int last) = 0;
  virtual void ExpansionChanged(RowId row) = 0;
  virtual void CurrentChanged() = 0;          // the row with the cursor is another one
  virtual void ScrollToCurrent() = 0;         // the row with the cursor is to be seen
  virtual void SelectionChanged() = 0;        // which rows are selected
  virtual void HeadingsChanged() = 0;         // order, width, visibility or sort marks of headings
  virtual void ShowHeading(int heading) = 0;  // is to be seen, as far as there is room
  virtual void FilterChanged() = 0;           // the filter, or the extensions to choose from
  virtual void StyleChanged() = 0;            // colours, active or inactive
  virtual void StatusChanged() = 0;  // the text of the status line, or the marks in the list
  virtual void DrivesChanged() = 0;  // the drives, or which one is shown
  virtual void Repaint() = 0;
  virtual void TakeFocus() = 0;
  virtual void EnterMarks() = 0;             // the keyboard goes to what tells the marks, if any
  virtual void ScrollRows(int rows) = 0;     // down; up if it is below 0
  virtual RowRange VisibleRows() const = 0;  // of a file list: rows on the screen
  virtual int PageRows() const = 0;          // how many rows fit on the screen, at least 1
  // The row under the mouse pointer; NoRow where there is none.
  virtual RowId RowUnderPointer() const = 0;
  // The user drags what is selected, until the button comes up.
  virtual void BeginDrag() = 0;
  // ListerControl::CatchUp is to be called from the event loop once that time has passed.
  virtual void CatchUpLater(int milliseconds) = 0;
  // ListerControl::LookAtDisk is to be called, for no reason but the time, once that has passed, in
  // place of what was asked for before; 0: not at all. Not where the list cannot be seen.
  virtual void LookLater(int milliseconds) = 0;
};

}  // namespace tarnwell::lister
