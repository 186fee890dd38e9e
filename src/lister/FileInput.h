// Mouse and keys over the rows of a file list.
#pragma once

#include "lister/FileListState.h"
#include "lister/ListInput.h"

namespace tarnwell::lister {

class FileInput : public ListInput {
 public:
  explicit FileInput(FileListState& files) : files_(files) {}

  bool IsSelected(RowId row) const override;
  std::vector<RowRange> SelectedRanges() const override;
  RowId NextSelected(std::int32_t& position) const override;

  void Arrow(int keyCode, bool spaceHeld, int shift) override;
  bool KeyDown(int keyCode, int shift) override;
  void TypeText(std::string_view text) override;

  void MouseDown(const RowPointer& at) override;
  void MouseMoved(const RowPointer& at) override;
  void MouseUp(const RowPointer& at) override;
  RowId Clicked() const override;

 private:
  FileListState& files_;
};

}  // namespace tarnwell::lister
