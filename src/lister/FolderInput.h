// Mouse and keys over the nodes of a folder list. Its selection is the node with the cursor.
#pragma once

#include "lister/FolderTree.h"
#include "lister/ListInput.h"

namespace tarnwell::lister {

class FolderInput : public ListInput {
 public:
  FolderInput(const FolderTree& tree, ListerControl& control) : tree_(tree), control_(control) {}

  bool IsSelected(RowId row) const override;
  std::vector<RowRange> SelectedRanges() const override { return {}; }
  RowId NextSelected(std::int32_t& position) const override;

  void Arrow(int keyCode, bool spaceHeld, int shift) override;
  bool KeyDown(int keyCode, int shift) override;
  void TypeText(std::string_view text) override;

  void MouseDown(const RowPointer& at) override;
  void MouseMoved(const RowPointer& at) override;
  void MouseUp(const RowPointer& at) override;
  RowId Clicked() const override;

 private:
  const FolderTree& tree_;
  ListerControl& control_;
};

}  // namespace tarnwell::lister
