// Mouse and keys over the nodes of a folder list. Its selection is the node with the cursor, which
// the widget moves by itself when the main button is pressed.
#pragma once

#include "lister/list/CommonInput.h"
#include "lister/tree/FolderTree.h"

namespace tarnwell::lister {

class FolderInput : public CommonInput {
 public:
  FolderInput(const FolderTree& tree, ListState& list, ListBody& body);

  bool IsSelected(RowId row) const override { return row != NoRow && row == Current(); }
  std::vector<RowRange> SelectedRanges() const override { return {}; }
  RowId NextSelected(std::int32_t& position) const override {
    return position++ == 0 ? Current() : NoRow;
  }

  // What an action is for: within its bracket the node that was clicked for it, else the current
  // one.
  RowId Meant() const { return IsHeld() && Clicked() != NoRow ? Clicked() : Current(); }

  // The node has become the open one.
  void Opened(RowId row) { SetClicked(row); }

  void Arrow(int keyCode, bool spaceHeld) override;

  void MouseDown(const RowPointer& at) override;
  void MouseMoved(const RowPointer& at) override;

 protected:
  void Release(const RowPointer& at) override;
  void EnterFolder(const std::string& folder) override;
  RowId Current() const override { return tree_.Has(tree_.Current()) ? tree_.Current() : NoRow; }
  RowId RowBelow(RowId row) const override;
  std::string_view NameOf(RowId row) const override { return tree_.Node(row).Name; }
  void MoveTo(RowId row) override;
  void ShowTyped(const std::string& text) override;
  void AskNewFolder(int keyCode, int shift) override;
  KeyAction ActionOf(int keyCode, int shift) override;

 private:
  // Among the rows on show; NoRow beyond the ends.
  RowId Next(RowId row) const;
  RowId Previous(RowId row) const;
  // The last row on show of the branch.
  RowId LastIn(RowId row) const;
  void MoveByKey(int keyCode, int shift);
  void FoldByKey(int keyCode, int shift);

  const FolderTree& tree_;
  PersistentRow pressed_;
};

}  // namespace tarnwell::lister
