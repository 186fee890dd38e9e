#include "lister/list/CommonInput.h"

#include <utility>

#include "base/Text.h"
#include "lister/list/ClickedItem.h"
#include "lister/list/ListBody.h"

namespace tarnwell::lister {
namespace {

// Milliseconds from one press of a held key to the next. Not every system tells those from presses
// by a finger, which take longer.
constexpr std::int64_t LongestRepeat = 100;

}  // namespace

CommonInput::CommonInput(ListState& list, ListBody& body)
    : list_(list), body_(body), clicked_(body) {}

void CommonInput::Focused() {
  // A Space that was let go elsewhere is not held any more.
  ResetStart();
  list_.Events.ListFocused(list_.Id);
  list_.Events.TitleColorAsked(list_.Id);
}

// --- Folders.

void CommonInput::GoToFolder(const std::string& folder) {
  const platform::FileSystem& files = list_.Services.Files;
  if (files.FolderExists(folder)) return EnterFolder(folder);
  base::Status status;
  files.OpenFolder(folder, status);
  const bool isThere = !status && files.Exists(folder);
  const std::string why = isThere ? status.Reason : "it is no longer there";
  list_.Events.StatusMessage(list_.Id, "Cannot open " + base::ForDisplay(folder) + ": " + why);
}

std::string CommonInput::Bookmark(int slot) const {
  std::string folder;
  auto asked = static_cast<std::int16_t>(slot);
  list_.Events.BookmarkAsked(list_.Id, asked, folder);
  return folder;
}

void CommonInput::GoToBookmark(int slot) {
  const std::string folder = Bookmark(slot);
  if (!folder.empty() && folder != "(empty)") GoToFolder(folder);
}

// --- Keys.

KeyAction CommonInput::ActionOf(int keyCode, int shift) {
  using This = CommonInput;
  static constexpr KeyBinding<CommonInput> Bindings[] = {
      {BackspaceKey, AnyShift, &This::UpFolder},
      {UpKey, AnyShift, &This::TellKey},
      {DownKey, AnyShift, &This::TellKey},
      {SpaceKeyCode, 0, &This::TellKey},
      {SpaceKeyCode, ShiftDown, &This::TellKey},
      {F3Key, AnyShift, &This::TellKey},
      {EnterKey, 0, &This::ActivateCurrent},
      {EnterKey, ShiftDown, &This::ActivateCurrent},
      {EnterKey, CtrlDown, &This::AskCommandText},
      {'N', CtrlDown | ShiftDown, &This::AskNewFolder},
      {'Q', CtrlDown, &This::AskClose},
  };
  if (shift == CtrlDown && keyCode >= '0' && keyCode <= '9') {
    // 1 is the first slot, 0 the tenth.
    return [this, slot = (keyCode - '0' + 9) % 10] { GoToBookmark(slot); };
  }
  return FindAction(*this, Bindings, keyCode, shift);
}

bool CommonInput::KeyDown(int keyCode, int shift) {
  modifiers_ = shift;
  const bool searched = !typed_.Wanted().empty();
  if (keyCode == EscapeKey) {
    SetTyped("");
    return searched || TakeBack();
  }
  if (keyCode == SpaceKeyCode && shift == 0) {
    // A blank within what is being typed, if there is a name to go with it.
    if (typed_.GoesOn(list_.Services.Clock.Ticks()) &&
        FindTyped(typed_.Typed() + " ", true) != NoRow) {
      return false;
    }
    // A key that is held down repeats.
    if (std::exchange(spaceIsDown_, true)) return true;
  }
  if (const KeyAction search = SearchActionOf(keyCode, shift)) {
    search();
    return true;
  }
  const KeyAction action = ActionOf(keyCode, shift);
  if (!action) return false;
  SetTyped("");
  action();
  return true;
}

void CommonInput::KeyUp(int keyCode) {
  if (keyCode != SpaceKeyCode) return;
  ResetStart();
  list_.Events.SpaceReleased(list_.Id);
}

void CommonInput::TellKey(int keyCode, int) {
  std::int16_t code = static_cast<std::int16_t>(keyCode);
  list_.Events.ListKeyDown(list_.Id, code);
}

void CommonInput::UpFolder(int keyCode, int shift) {
  list_.Events.UpFolderKey(list_.Id, keyCode, shift);
}

void CommonInput::ActivateCurrent(int, int) {
  body_.Activate(Current());
}

void CommonInput::AskCommandText(int, int) {
  std::string path = body_.PathOf(Current());
  if (path.empty()) return;
  if (path.find(' ') != std::string::npos) path = '"' + path + '"';
  list_.Events.CommandTextAsked(list_.Id, path);
}

void CommonInput::AskClose(int, int) {
  list_.Events.CloseAsked(list_.Id);
}

// --- Typing.

// The keys of the search leave it as it is, and others end it.
KeyAction CommonInput::SearchActionOf(int keyCode, int shift) {
  using This = CommonInput;
  static constexpr KeyBinding<CommonInput> Bindings[] = {
      {'G', CtrlDown, &This::StepToMatch},
      {'G', CtrlDown | ShiftDown, &This::StepToMatch},
      {BackspaceKey, 0, &This::TakeLetterBack},
  };
  const bool isHeld =
      backspaceTakes_ || list_.Services.Clock.Ticks() - backspaceAt_ < LongestRepeat;
  if (keyCode == BackspaceKey && !ShowsTyped() && !isHeld) return {};
  return FindAction(*this, Bindings, keyCode, shift);
}

void CommonInput::TypeText(std::string_view text) {
  if (text.empty() || static_cast<unsigned char>(text[0]) < 0x20 || text[0] == 0x7F) return;
  typed_.Add(text, list_.Services.Clock.Ticks());
  Search(false);
}

// Held down, the key does not go on to lead up folders once the text has gone.
void CommonInput::TakeLetterBack(int, int) {
  backspaceTakes_ = true;
  backspaceAt_ = list_.Services.Clock.Ticks();
  if (typed_.Typed().empty()) return;
  typed_.TakeBack(backspaceAt_);
  if (typed_.Typed().empty()) return ShowTyped("");
  Search(true);
}

void CommonInput::StepToMatch(int, int shift) {
  typed_.Resume();
  if (typed_.Typed().empty()) return;
  const bool back = (shift & ShiftDown) != 0;
  ShowFound(back ? FindBefore(typed_.Wanted()) : FindTyped(typed_.Wanted(), false));
}

void CommonInput::Search(bool stays) {
  RowId found = FindTyped(typed_.Wanted(), stays || typed_.TakesCurrent());
  if (found == NoRow && typed_.NarrowToLetter()) found = FindTyped(typed_.Wanted(), stays);
  ShowFound(found);
}

void CommonInput::ShowFound(RowId found) {
  if (found != NoRow) MoveTo(found);
  // The move can have led anywhere, and to an end of the search too.
  if (!typed_.Wanted().empty()) ShowTyped(typed_.Wanted());
  if (found == NoRow) {
    list_.SetStatus("No item begins with " + base::ForDisplay(typed_.Wanted()));
  }
  searchStatus_ = list_.Status;
}

// Other news may have taken its place in the status line.
bool CommonInput::ShowsTyped() const {
  return typed_.GoesOn(list_.Services.Clock.Ticks()) ||
         (!typed_.Typed().empty() && list_.Status == searchStatus_);
}

void CommonInput::SetTyped(const std::string& text) {
  if (text == typed_.Wanted()) return;
  typed_.Set(text);
  ShowTyped(text);
}

RowId CommonInput::FindTyped(std::string_view wanted, bool takesCurrent) const {
  const RowId current = Current();
  if (takesCurrent && current != NoRow && TypedText::Begins(NameOf(current), wanted)) {
    return current;
  }
  const RowId first = RowBelow(current);
  if (first == NoRow) return NoRow;
  RowId row = first;
  do {
    if (TypedText::Begins(NameOf(row), wanted)) return row;
    row = RowBelow(row);
  } while (row != first);
  return NoRow;
}

// The last match on the way round to the row with the cursor, which comes last itself.
RowId CommonInput::FindBefore(std::string_view wanted) const {
  const RowId current = Current();
  const RowId first = RowBelow(current);
  RowId found = NoRow;
  if (current != NoRow && TypedText::Begins(NameOf(current), wanted)) found = current;
  for (RowId row = first; row != NoRow && row != current;) {
    if (TypedText::Begins(NameOf(row), wanted)) found = row;
    row = RowBelow(row);
    if (row == first) break;
  }
  return found;
}

// --- Mouse.

void CommonInput::SetClicked(RowId row) {
  if (!holdsClicked_) clicked_.Set(row);
}

void CommonInput::ForgetClicked() {
  holdsClicked_ = false;
  clicked_.Clear();
}

bool CommonInput::MayStart() const {
  return action_ == MouseAction::None && !list_.Fields.MouseLocked;
}

void CommonInput::BeginDrag(const MouseEvent& event) {
  action_ = MouseAction::Drag;
  list_.Events.DragBegun(list_.Id, event);
}

void CommonInput::DragFinished(const MouseEvent& event) {
  if (action_ != MouseAction::Drag) return;
  action_ = MouseAction::None;
  list_.Events.DragEnded(list_.Id, event);
}

void CommonInput::MouseUp(const RowPointer& at) {
  Release(at);
  list_.Events.MouseReleased(list_.Id);
}

void CommonInput::WheelTurned(int delta) {
  list_.Events.WheelTurned(list_.Id, delta);
}

void CommonInput::RaiseRightClick(const RowPointer& at) {
  if (holdsClicked_) return;  // a menu is at work
  RightClick click;
  click.X = at.Event.X;
  click.Y = at.Event.Y;
  const ClickedItem item = DescribeClicked(list_, body_, Clicked());
  click.Folder = item.Folder;
  click.Name = item.Name;
  click.Path = body_.PathOf(Clicked());
  if (item.Kind == ClickedFolder && !IsFileList(list_.Id)) {
    click.UsePath = true;
    click.Folder = click.Path;
  } else if (item.Kind == ClickedEmptySpace) {
    std::int32_t position = 0;
    click.UsePath = NextSelected(position) == NoRow;
  }
  list_.Events.RightClicked(list_.Id, click);
}

}  // namespace tarnwell::lister
