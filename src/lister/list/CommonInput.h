// What both kinds of list do alike with mouse and keys: the row clicked last, dragging, searching
// by typed text, and the keys that have nothing to do with what is selected.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "lister/list/ListInput.h"
#include "lister/list/TypedText.h"
#include "lister/rows/PersistentRow.h"

namespace tarnwell::lister {

class ListBody;
struct ListState;

// Stands for all combinations of Shift and Ctrl.
inline constexpr int AnyShift = -1;

// What a key does; `Act` takes the key's code and the modifiers.
template <typename Input>
struct KeyBinding {
  int KeyCode;
  int Shift;
  void (Input::*Act)(int keyCode, int shift);
};

using KeyAction = std::function<void()>;

// The action of the key in the table; none if it is not there.
template <typename Input, typename Table>
KeyAction FindAction(Input& input, const Table& table, int keyCode, int shift) {
  for (const KeyBinding<Input>& binding : table) {
    if (binding.KeyCode != keyCode) continue;
    if (binding.Shift == AnyShift ? (shift & AltDown) != 0 : binding.Shift != shift) continue;
    return [&input, act = binding.Act, keyCode, shift] { (input.*act)(keyCode, shift); };
  }
  return {};
}

class CommonInput : public ListInput {
 public:
  CommonInput(ListState& list, ListBody& body);

  void Focused() override;
  void SetModifiers(int shift) override { modifiers_ = shift; }
  void KeyUp(int keyCode) override;
  void MouseUp(const RowPointer& at) final;
  void WheelTurned(int delta) override;
  std::string Bookmark(int slot) const override;
  void GoToBookmark(int slot) override;
  void GoToFolder(const std::string& folder) override;

  MouseAction Action() const override { return action_; }
  void ResetStart() override { spaceIsDown_ = backspaceTakes_ = false; }
  bool KeyDown(int keyCode, int shift) override;
  void TypeText(std::string_view text) override;
  void SetTyped(const std::string& text) override;
  void DragFinished(const MouseEvent& event) override;
  RowId Clicked() const override { return clicked_.Get(); }
  void HoldClicked() override { holdsClicked_ = true; }
  void ForgetClicked() override;

 protected:
  virtual RowId Current() const = 0;
  // The row on show below this one, which may not be on show itself; the first one below the last
  // and for NoRow; NoRow if there are no rows.
  virtual RowId RowBelow(RowId row) const = 0;
  virtual std::string_view NameOf(RowId row) const = 0;
  virtual void MoveTo(RowId row) = 0;
  // What the mouse did here ends with the button that came up.
  virtual void Release(const RowPointer& at) = 0;
  // The text of the search has changed; empty: there is none any more.
  virtual void ShowTyped(const std::string& text) = 0;
  virtual void AskNewFolder(int keyCode, int shift) = 0;
  virtual KeyAction ActionOf(int keyCode, int shift);
  // Escape, once no search is left to end by it.
  virtual bool TakeBack() { return false; }

  // What is done by key counts as a click on the row that it leads to.
  void SetClicked(RowId row);
  bool IsHeld() const { return holdsClicked_; }
  // False where the mouse must not start anything.
  bool MayStart() const;
  void BeginDrag(const MouseEvent& event);
  void RaiseRightClick(const RowPointer& at);

  // To a folder that exists.
  virtual void EnterFolder(const std::string& folder) = 0;

  ListState& list_;
  ListBody& body_;
  MouseAction action_ = MouseAction::None;
  int modifiers_ = 0;  // of the key that is being handled

 private:
  void TellKey(int keyCode, int shift);
  void UpFolder(int keyCode, int shift);
  void ActivateCurrent(int keyCode, int shift);
  void AskCommandText(int keyCode, int shift);
  void AskClose(int keyCode, int shift);
  KeyAction SearchActionOf(int keyCode, int shift);
  void TakeLetterBack(int keyCode, int shift);
  void StepToMatch(int keyCode, int shift);
  void Search(bool stays);  // on the row with the cursor, if its name fits
  // Goes to the row, unless there is none, and says what is looked for.
  void ShowFound(RowId found);
  bool ShowsTyped() const;  // or the user is still at it
  RowId FindTyped(std::string_view wanted, bool takesCurrent) const;
  RowId FindBefore(std::string_view wanted) const;

  PersistentRow clicked_;
  bool holdsClicked_ = false;
  TypedText typed_;
  std::string searchStatus_;  // what was last said of it
  bool spaceIsDown_ = false;
  bool backspaceTakes_ = false;       // letters, until it comes up
  std::int64_t backspaceAt_ = -1000;  // when it last took one, or would have; milliseconds
};

}  // namespace tarnwell::lister
