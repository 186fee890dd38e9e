// What the user does with the rows of a list, by mouse and keys, and what is selected by it: the
// face that both kinds of list show the control and the widget. Moves the cursor and selects; reads
// nothing and changes no file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lister/list/RowPointer.h"
#include "lister/rows/Comparison.h"
#include "lister/rows/ListerView.h"

namespace tarnwell::lister {

// Key codes of ListKeyDown; letters and digits have those of their capitals.
enum KeyCode : int {
  BackspaceKey = 8,
  EnterKey = 13,
  EscapeKey = 27,
  SpaceKeyCode = 32,
  PageUpKey = 33,
  PageDownKey = 34,
  EndKey = 35,
  HomeKey = 36,
  LeftKey = 37,
  UpKey = 38,
  RightKey = 39,
  DownKey = 40,
  InsertKey = 45,
  DeleteKey = 46,
  F1Key = 112,
  F2Key = 113,
  F3Key = 114,
};

// Bits of MouseEvent::Shift.
enum ShiftMask : int { ShiftDown = 1, CtrlDown = 2, AltDown = 4 };

class ListInput {
 public:
  virtual ~ListInput() = default;

  virtual bool IsSelected(RowId row) const = 0;
  virtual std::vector<RowRange> SelectedRanges() const = 0;  // of positions from the top
  // The first selected row at or behind the position, which moves behind it; NoRow at the end.
  virtual RowId NextSelected(std::int32_t& position) const = 0;
  virtual MouseAction Action() const { return MouseAction::None; }

  virtual void SelectAll(bool /*none*/) {}
  // The rows on show that bear the mark, and no others unless it `adds` them to what is selected.
  virtual void SelectMarked(CompareMarks /*mark*/, bool /*adds*/) {}
  // The modifiers that are held while Arrow comes, as far as nobody but the form knows them.
  virtual void SetModifiers(int shift) = 0;
  virtual void Arrow(int keyCode, bool spaceHeld) = 0;
  virtual void Space() {}
  virtual void ResetStart() {}
  // The keys that the list acts on by itself, or tells of by ListKeyDown; false for the others.
  // `shift` is the mask of MouseEvent.
  virtual bool KeyDown(int keyCode, int shift) = 0;
  virtual void KeyUp(int keyCode) = 0;
  // Typed text moves the cursor to the next item whose name begins with it.
  virtual void TypeText(std::string_view text) = 0;
  // To the folder, on another drive if need be. One that cannot be opened is told by StatusMessage,
  // with the reason.
  virtual void GoToFolder(const std::string& folder) = 0;

  // Bookmarks have slots 0 to 9. The form is asked for what a slot holds. A slot without a folder
  // leads nowhere.
  virtual std::string Bookmark(int slot) const = 0;
  virtual void GoToBookmark(int slot) = 0;

  // The list has got the keyboard, or a click.
  virtual void Focused() = 0;
  virtual void WheelTurned(int delta) = 0;
  // A press: the button that it is for is the event's. The other button selects what it comes down
  // on and raises RightClicked. MouseMoved is for a pressed main button alone, and once the pointer
  // has left the place where it came down by more than a trembling hand does.
  virtual void MouseDown(const RowPointer& at) = 0;
  virtual void MouseMoved(const RowPointer& at) = 0;
  virtual void MouseUp(const RowPointer& at) = 0;

  virtual void PrepareMouse() {}
  virtual void PrepareKeyboard() {}
  // The row clicked last; NoRow for empty space or if it is gone. It stays from Hold to Forget,
  // wherever the user clicks.
  virtual RowId Clicked() const = 0;
  virtual void HoldClicked() = 0;
  virtual void ForgetClicked() = 0;

  // What is looked for by typing; empty ends the search.
  virtual void SetTyped(const std::string& text) = 0;
  virtual void DragFinished(const MouseEvent& event) = 0;
  // Ends what the mouse selects at this moment, as it stands: the rows are about to go.
  virtual void Stop() {}
};

}  // namespace tarnwell::lister
