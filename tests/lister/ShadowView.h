// A view that keeps its own copy of the rows, changes it by the calls that announce changes alone,
// and fails the test when a call or the outcome does not fit what the list says.
#pragma once

#include "Test.h"
#include "lister/ListerControl.h"
#include "lister/rows/NoView.h"

namespace tarnwell::lister {

class ShadowView : public NoView {
 public:
  explicit ShadowView(ListerControl& list) : list_(list) {
    Copy(RootRow);
    list.View = this;
  }
  ~ShadowView() override { list_.View = nullptr; }

  int Resets = 0;
  int Reorders = 0;
  int CurrentChanges = 0;
  int SelectionChanges = 0;
  int Scrolls = 0;  // to the row with the cursor
  int Drags = 0;
  int Page = 1;
  int Repaints = 0;
  int FilterChanges = 0;
  CompareMarks Marks;  // in the list, as far as that was told
  RowRange Visible;
  std::vector<RowRange> Cells;  // told to have changed
  std::vector<int> CatchUps;    // the times asked for
  std::vector<int> Looks;       // likewise
  RowId Pointed = NoRow;        // the row under the mouse pointer

  // The copy is what the list says now.
  void Check() const {
    for (const auto& [row, children] : rows_) EXPECT_EQ(ChildrenOf(row), children) << row;
  }

  void ScrollToCurrent() override { ++Scrolls; }
  void BeginReset() override { open_ = true; }
  void EndReset() override {
    ++Resets;
    rows_.clear();
    Copy(RootRow);
    open_ = false;
  }
  void BeginInsert(RowId parent, int first, int last) override {
    Begin(parent);
    first_ = first;
    last_ = last;
  }
  void EndInsert() override {
    std::vector<RowId>& children = rows_[parent_];
    for (int at = first_; at <= last_; ++at) {
      const RowId row = list_.Rows().Child(parent_, at);
      children.insert(children.begin() + at, row);
      Copy(row);
    }
    End();
  }
  void BeginRemove(RowId parent, int first, int last) override {
    Begin(parent);
    ASSERT_LE(0, first);
    ASSERT_LE(first, last);
    ASSERT_LT(last, static_cast<int>(rows_[parent].size()));
    for (int at = first; at <= last; ++at) Drop(rows_[parent][static_cast<std::size_t>(at)]);
    rows_[parent].erase(rows_[parent].begin() + first, rows_[parent].begin() + last + 1);
  }
  void EndRemove() override { End(); }
  void BeginReorder(RowId parent) override { Begin(parent); }
  void EndReorder() override {
    ++Reorders;
    std::vector<RowId> now = ChildrenOf(parent_);
    const auto sorted = [](std::vector<RowId> rows) { return std::ranges::sort(rows), rows; };
    EXPECT_EQ(sorted(now), sorted(rows_[parent_]));
    rows_[parent_] = now;
    End();
  }
  void CellsChanged(RowId parent, int first, int last) override {
    EXPECT_FALSE(open_);
    EXPECT_LE(0, first);
    EXPECT_LE(first, last);
    EXPECT_LT(last, list_.Rows().ChildCount(parent));
    Cells.push_back({first, last});
  }
  void Repaint() override { ++Repaints; }
  void FilterChanged() override { ++FilterChanges; }
  void StatusChanged() override { Marks = list_.Shown().Marks; }
  RowRange VisibleRows() const override { return Visible; }
  RowId RowUnderPointer() const override { return Pointed; }
  void CurrentChanged() override { ++CurrentChanges; }
  void SelectionChanged() override { ++SelectionChanges; }
  void BeginDrag() override { ++Drags; }
  int PageRows() const override { return Page; }
  void CatchUpLater(int milliseconds) override { CatchUps.push_back(milliseconds); }
  void LookLater(int milliseconds) override { Looks.push_back(milliseconds); }

 private:
  std::vector<RowId> ChildrenOf(RowId row) const {
    std::vector<RowId> children;
    for (int at = 0; at < list_.Rows().ChildCount(row); ++at) {
      children.push_back(list_.Rows().Child(row, at));
      EXPECT_EQ(list_.Rows().PositionOf(children.back()), at);
      EXPECT_EQ(list_.Rows().Parent(children.back()), row);
    }
    return children;
  }
  void Copy(RowId row) {
    const std::vector<RowId> children = ChildrenOf(row);
    rows_[row] = children;
    for (const RowId child : children) Copy(child);
  }
  void Drop(RowId row) {
    for (const RowId child : rows_[row]) Drop(child);
    rows_.erase(row);
  }
  void Begin(RowId parent) {
    EXPECT_FALSE(open_) << "a change inside a change";
    EXPECT_TRUE(rows_.contains(parent));
    EXPECT_EQ(ChildrenOf(parent), rows_[parent]) << "rows changed before it was announced";
    open_ = true;
    parent_ = parent;
  }
  void End() {
    EXPECT_EQ(ChildrenOf(parent_), rows_[parent_]);
    open_ = false;
  }

  ListerControl& list_;
  std::map<RowId, std::vector<RowId>> rows_;
  bool open_ = false;
  RowId parent_ = RootRow;
  int first_ = 0;
  int last_ = 0;
};

}  // namespace tarnwell::lister
