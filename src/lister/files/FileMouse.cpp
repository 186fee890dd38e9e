// The part of FileInput that follows the mouse.
#include <algorithm>

#include "lister/files/FileInput.h"

namespace tarnwell::lister {

void FileInput::MouseDown(const RowPointer& at) {
  constexpr int main = 1, other = 2;
  if (at.Event.Button == main && action_ != MouseAction::None) {
    // The end of what went on got lost.
    Stop();
    DragFinished(at.Event);
  }
  if (!MayStart()) return;
  Focused();
  SetTyped("");
  if (at.Event.Button == main) PressMain(at);
  if (at.Event.Button == other) PressOther(at);
}

void FileInput::PressMain(const RowPointer& at) {
  const RowId row = at.Part == RowPart::None || !files_.Rows.Has(at.Row) ? NoRow : at.Row;
  const bool shift = (at.Event.Shift & ShiftDown) != 0, ctrl = (at.Event.Shift & CtrlDown) != 0;
  SetClicked(row);
  isPressed_ = true;
  press_ = at;
  pressed_.Set(row);
  later_ = Later::Nothing;
  keyStart_.Clear();
  selection_.Keep();

  if (row == NoRow) {
    press_.Part = RowPart::None;
    if (!shift && !ctrl) selection_.SetAll(false);
    return;
  }
  if (at.Part == RowPart::Gap) {
    selection_.Toggle(row);
    mouseSelects_ = selection_.Has(row);
  } else if (shift) {
    selection_.SelectTo(row, ctrl);
  } else if (selection_.Has(row)) {
    later_ = ctrl ? Later::Toggle : Later::SelectOnly;
  } else if (ctrl) {
    selection_.Toggle(row);
  } else {
    selection_.SelectOnly(row);
  }
  body_.MoveCurrent(row);
}

void FileInput::PressOther(const RowPointer& at) {
  const RowId row = at.Part == RowPart::None || !files_.Rows.Has(at.Row) ? NoRow : at.Row;
  SetClicked(row);
  if (row != NoRow) {
    if (!selection_.Has(row)) selection_.SelectOnly(row);
    body_.MoveCurrent(row);
  }
  RaiseRightClick(at);
}

void FileInput::MouseMoved(const RowPointer& at) {
  if (action_ == MouseAction::Drag) {
    list_.Events.DragMoved(list_.Id, at.Event);
    return;
  }
  if (!isPressed_) return;
  if (action_ == MouseAction::None) {
    if (!MayStart()) return;
    later_ = Later::Nothing;
    if (press_.Part == RowPart::Item) {
      isPressed_ = false;
      if (selection_.Has(pressed_.Get())) BeginDrag(at.Event);
      return;
    }
    BeginSelecting(press_.Part == RowPart::Gap ? MouseAction::Sweep : MouseAction::Band);
  }
  // The form heard of the lock, and may have ended this.
  if (action_ != MouseAction::None) SelectByMouse(at.Position);
}

void FileInput::Release(const RowPointer& at) {
  constexpr int other = 2, middle = 4;
  if (at.Event.Button == other || at.Event.Button == middle) return;
  const Later later = later_;
  const RowId row = pressed_.Get();
  Stop();
  DragFinished(at.Event);
  if (row == NoRow) return;
  if (later == Later::Toggle) selection_.Toggle(row);
  if (later == Later::SelectOnly) selection_.SelectOnly(row);
}

void FileInput::BeginSelecting(MouseAction action) {
  action_ = action;
  bool locked = true;
  list_.Events.MouseLockAsked(list_.Id, locked);
}

void FileInput::Stop() {
  isPressed_ = false;
  later_ = Later::Nothing;
  if (action_ != MouseAction::Sweep && action_ != MouseAction::Band) return;
  action_ = MouseAction::None;
  bool locked = false;
  list_.Events.MouseLockAsked(list_.Id, locked);
}

bool FileInput::TakeBack() {
  if (action_ != MouseAction::Sweep && action_ != MouseAction::Band) return false;
  selection_.PutBack();
  Stop();
  return true;
}

void FileInput::SelectByMouse(int position) {
  const RowId row = pressed_.Get();
  int start =
      row == NoRow ? std::min(press_.Position, files_.Rows.Count()) : files_.Rows.PositionOf(row);
  if (press_.Part == RowPart::None) start = files_.Rows.Count();
  if (action_ == MouseAction::Sweep) {
    selection_.Sweep(start, position, mouseSelects_ ? Sweeping::Selects : Sweeping::Unselects,
                     true);
  } else {
    const bool shift = (press_.Event.Shift & ShiftDown) != 0;
    const bool ctrl = (press_.Event.Shift & CtrlDown) != 0;
    selection_.Sweep(start, position, ctrl && !shift ? Sweeping::Toggles : Sweeping::Selects,
                     shift || ctrl);
  }
}

}  // namespace tarnwell::lister
