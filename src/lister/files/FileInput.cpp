#include "lister/files/FileInput.h"

#include <algorithm>
#include <limits>

#include "base/Text.h"
#include "lister/files/FileStatus.h"
#include "lister/files/OpenFiles.h"

namespace tarnwell::lister {

FileInput::FileInput(FileListState& files, ListBody& body)
    : CommonInput(files.List, body),
      files_(files),
      selection_(files, body),
      keyStart_(body),
      pressed_(body) {}

KeyAction FileInput::ActionOf(int keyCode, int shift) {
  using This = FileInput;
  static constexpr KeyBinding<FileInput> Bindings[] = {
      {HomeKey, AnyShift, &This::MoveByKey},      {EndKey, AnyShift, &This::MoveByKey},
      {PageUpKey, AnyShift, &This::MoveByKey},    {PageDownKey, AnyShift, &This::MoveByKey},
      {'A', CtrlDown, &This::SelectEverything},   {SpaceKeyCode, CtrlDown, &This::ToggleCurrent},
      {InsertKey, 0, &This::ToggleAndMove},       {EnterKey, 0, &This::OpenSelected},
      {EnterKey, ShiftDown, &This::OpenSelected},
  };
  KeyAction own = FindAction(*this, Bindings, keyCode, shift);
  return own ? own : CommonInput::ActionOf(keyCode, shift);
}

RowId FileInput::RowBelow(RowId row) const {
  const int count = files_.Rows.Count();
  if (count == 0) return NoRow;
  return files_.Rows.At(row == NoRow ? 0 : (files_.Rows.PositionOf(row) + 1) % count);
}

RowId FileInput::RowAway(int rows) const {
  const int count = files_.Rows.Count();
  if (count == 0) return NoRow;
  if (Current() == NoRow)
    return files_.Rows.At(rows == std::numeric_limits<int>::max() ? count - 1 : 0);
  const std::int64_t place = std::int64_t{files_.Rows.PositionOf(Current())} + rows;
  return files_.Rows.At(static_cast<int>(std::clamp<std::int64_t>(place, 0, count - 1)));
}

// The cursor last: it raises an event, on which anything may happen to the rows.
void FileInput::GoTo(RowId row, int shift) {
  if (row == NoRow) return;
  SetClicked(row);
  if ((shift & ShiftDown) != 0) {
    selection_.SelectTo(row, (shift & CtrlDown) != 0);
  } else if ((shift & CtrlDown) == 0) {
    selection_.SelectOnly(row);
  }
  body_.MoveCurrent(row);
}

void FileInput::MoveTo(RowId row) {
  GoTo(row, 0);
}

void FileInput::Arrow(int keyCode, bool spaceHeld) {
  if (keyCode != UpKey && keyCode != DownKey) return;
  const RowId row = RowAway(keyCode == UpKey ? -1 : 1);
  if (!spaceHeld || row == NoRow) return GoTo(row, modifiers_);
  if (keyStart_.Get() == NoRow) {
    keyStart_.Set(Current() == NoRow ? row : Current());
    keySelects_ = selection_.Has(keyStart_.Get());
    selection_.Keep();
  }
  selection_.Sweep(files_.Rows.PositionOf(keyStart_.Get()), files_.Rows.PositionOf(row),
                   keySelects_ ? Sweeping::Selects : Sweeping::Unselects, true);
  SetClicked(row);
  body_.MoveCurrent(row);
}

void FileInput::Space() {
  if (Current() == NoRow) return;
  selection_.Keep();
  selection_.Toggle(Current());
  keyStart_.Set(Current());
  keySelects_ = selection_.Has(Current());
  SetClicked(Current());
}

void FileInput::ResetStart() {
  CommonInput::ResetStart();
  keyStart_.Clear();
}

void FileInput::MoveByKey(int keyCode, int shift) {
  constexpr int all = std::numeric_limits<int>::max();
  const int page = std::max(1, files_.View().PageRows());
  const bool up = keyCode == HomeKey || keyCode == PageUpKey;
  const int rows = keyCode == HomeKey || keyCode == EndKey ? all : page;
  GoTo(RowAway(up ? -rows : rows), shift);
}

void FileInput::SelectEverything(int, int) {
  selection_.SetAll(true);
}

// The cursor shows where they begin, unless they are added to what is seen already.
void FileInput::SelectMarked(CompareMarks mark, bool adds) {
  const RowId first = selection_.SelectMarked(mark, adds);
  if (first == NoRow || adds) return;
  SetClicked(first);
  body_.MoveCurrent(first);
}

void FileInput::ToggleCurrent(int, int) {
  if (Current() != NoRow) selection_.Toggle(Current());
}

void FileInput::ToggleAndMove(int keyCode, int shift) {
  ToggleCurrent(keyCode, shift);
  GoTo(RowAway(1), CtrlDown);
}

void FileInput::OpenSelected(int, int) {
  OpenSelectedOr(files_, Current());
}

void FileInput::AskNewFolder(int, int) {
  list_.Events.NewFolderAsked(list_.Id);
}

void FileInput::EnterFolder(const std::string& folder) {
  list_.Events.OpenChildFolder(list_.Id, folder, list_.Syntax.ParentOf(folder));
}

void FileInput::ShowTyped(const std::string& text) {
  if (text.empty()) {
    ShowSummary(files_);
  } else {
    list_.SetStatus("Find: " + base::ForDisplay(text));
  }
}

// A click that took its row out of the selection leaves the others as what is meant.
void FileInput::HoldClicked() {
  if (!selection_.Has(Clicked())) SetClicked(NoRow);
  CommonInput::HoldClicked();
}

void FileInput::PrepareMouse() {
  if (IsHeld() && Clicked() != NoRow && !selection_.Has(Clicked()))
    selection_.SelectOnly(Clicked());
}

void FileInput::PrepareKeyboard() {
  if (files_.Rows.SelectedCount() == 0 && Current() != NoRow) selection_.SelectOnly(Current());
}

}  // namespace tarnwell::lister
