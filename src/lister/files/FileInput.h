// Mouse and keys over the rows of a file list.
#pragma once

#include "lister/files/FileListState.h"
#include "lister/files/RowSelection.h"
#include "lister/list/CommonInput.h"

namespace tarnwell::lister {

class FileInput : public CommonInput {
 public:
  FileInput(FileListState& files, ListBody& body);

  bool IsSelected(RowId row) const override { return selection_.Has(row); }
  std::vector<RowRange> SelectedRanges() const override { return selection_.Ranges(); }
  RowId NextSelected(std::int32_t& position) const override { return selection_.Next(position); }

  void SelectAll(bool none) override { selection_.SetAll(!none); }
  void SelectMarked(CompareMarks mark, bool adds) override;
  void Arrow(int keyCode, bool spaceHeld) override;
  void Space() override;
  void ResetStart() override;

  void MouseDown(const RowPointer& at) override;
  void MouseMoved(const RowPointer& at) override;
  void Stop() override;

  void HoldClicked() override;
  void PrepareMouse() override;
  void PrepareKeyboard() override;

  // These rows become what is selected; at least one, by position from the top.
  void SelectThese(const std::vector<RowId>& rows) { selection_.SelectThese(rows); }

 protected:
  void Release(const RowPointer& at) override;
  void EnterFolder(const std::string& folder) override;
  RowId Current() const override {
    return files_.Rows.Has(files_.Current) ? files_.Current : NoRow;
  }
  RowId RowBelow(RowId row) const override;
  std::string_view NameOf(RowId row) const override { return files_.Rows.OwnName(row); }
  void MoveTo(RowId row) override;
  void ShowTyped(const std::string& text) override;
  void AskNewFolder(int keyCode, int shift) override;
  KeyAction ActionOf(int keyCode, int shift) override;
  bool TakeBack() override;

 private:
  // Of a click that would break up what is about to be dragged, left for when the button comes up.
  enum class Later { Nothing, SelectOnly, Toggle };

  // The row that many rows from the one with the cursor, or at the end in that direction.
  RowId RowAway(int rows) const;
  // The cursor goes to the row, and the modifiers say what is selected.
  void GoTo(RowId row, int shift);
  void MoveByKey(int keyCode, int shift);
  void SelectEverything(int keyCode, int shift);
  void ToggleCurrent(int keyCode, int shift);
  void ToggleAndMove(int keyCode, int shift);
  void OpenSelected(int keyCode, int shift);

  void PressMain(const RowPointer& at);
  void PressOther(const RowPointer& at);
  void BeginSelecting(MouseAction action);
  // To the position of the pointer.
  void SelectByMouse(int position);

  FileListState& files_;
  RowSelection selection_;

  // By keys: where Space went down, and what it made of the row.
  PersistentRow keyStart_;
  bool keySelects_ = false;

  // By mouse: where the main button went down.
  bool isPressed_ = false;
  RowPointer press_;
  PersistentRow pressed_;
  Later later_ = Later::Nothing;
  bool mouseSelects_ = false;  // what a sweep makes of the rows
};

}  // namespace tarnwell::lister
