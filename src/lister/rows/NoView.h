// The widget of a list that has none: tells changes to nobody.
#pragma once

#include "lister/rows/ListerView.h"

namespace tarnwell::lister {

class NoView : public ListerView {
 public:
  void BeginReset() override {}
  void EndReset() override {}
  void BeginInsert(RowId, int, int) override {}
  void EndInsert() override {}
  void BeginRemove(RowId, int, int) override {}
  void EndRemove() override {}
  void BeginUpdate() override {}
  void EndUpdate() override {}
  void BeginReorder(RowId) override {}
  void EndReorder() override {}
  void CellsChanged(RowId, int, int) override {}
  void ExpansionChanged(RowId) override {}
  void CurrentChanged() override {}
  void ScrollToCurrent() override {}
  void SelectionChanged() override {}
  void FilterChanged() override {}
  void HeadingsChanged() override {}
  void ShowHeading(int) override {}
  void StyleChanged() override {}
  void StatusChanged() override {}
  void DrivesChanged() override {}
  void Repaint() override {}
  void TakeFocus() override {}
  void EnterMarks() override {}
  void ScrollRows(int) override {}
  RowRange VisibleRows() const override { return {}; }
  int PageRows() const override { return 1; }
  RowId RowUnderPointer() const override { return NoRow; }
  void BeginDrag() override {}
  void CatchUpLater(int) override {}
  void LookLater(int) override {}
};

}  // namespace tarnwell::lister
