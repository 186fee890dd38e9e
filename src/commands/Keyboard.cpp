#include "commands/Keyboard.h"

#include <exception>

#include "lister/list/ListInput.h"
#include "platform/FileOperation.h"
#include "workspace/CurrentListScope.h"

namespace tarnwell::commands {

using lister::CtrlDown;
using lister::ShiftDown;
using shellmenu::MenuMode;

struct Keyboard::Row {
  int Code;
  bool NeedsCtrl;
  void (Keyboard::*Act)(int shift);
  bool Disarms;  // held down, it acts once
};

// The code alone decides, but for the rows that need Ctrl: Shift+F2 is F2.
const Keyboard::Row Keyboard::Rows[] = {
    {lister::F2Key, false, &Keyboard::Rename, false},
    {lister::F1Key, false, &Keyboard::Help, false},
    {'A', true, &Keyboard::SelectAll, true},
    {lister::DownKey, false, &Keyboard::TakeFocus, true},
    {lister::UpKey, false, &Keyboard::TakeFocus, true},
    {'K', false, &Keyboard::Drop, false},
    {'L', false, &Keyboard::Drop, false},
    {'X', true, &Keyboard::Cut, false},
    {'C', true, &Keyboard::Copy, false},
    {'V', true, &Keyboard::Paste, false},
    {lister::DeleteKey, false, &Keyboard::Delete, false},
};

void Keyboard::KeyDown(int code, int shift) {
  if (workspace_.Form.ActiveControl == workspace::KeyboardFocus::CommandLine) return;
  try {
    Handle(code, shift);
  } catch (const std::exception&) {
    TellError();
  }
}

void Keyboard::Handle(int code, int shift) {
  if (code == lister::EscapeKey) actions_.EscapeKey();
  if (code != lister::DeleteKey && !workspace_.KeyArmed) return;
  if ((shift & ShiftDown) != 0) {
    if (Active() != nullptr && !workspace_.IsWin9x) Active()->TakeFocus("shift");
    workspace_.KeyArmed = false;
  }
  if ((shift & CtrlDown) != 0 && Active() != nullptr && !workspace_.IsWin9x) {
    Active()->TakeFocus("ctrl");
  }
  for (const Row& row : Rows) {
    if (row.Code != code || (row.NeedsCtrl && (shift & CtrlDown) == 0)) continue;
    (this->*row.Act)(shift);
    if (row.Disarms) workspace_.KeyArmed = false;
    return;
  }
}

struct Keyboard::OwnRow {
  int Code;
  int Shift;  // what is held, among others
  void (Keyboard::*Act)(int shift);
};

const Keyboard::OwnRow Keyboard::OwnRows[] = {
    {lister::F2Key, 0, &Keyboard::Rename},
    {'X', CtrlDown, &Keyboard::Cut},
    {'C', CtrlDown, &Keyboard::Copy},
    {'M', CtrlDown, &Keyboard::RenameItems},
    {'R', CtrlDown, &Keyboard::Refresh},
    {lister::EnterKey, lister::AltDown, &Keyboard::ShowProperties},
    {lister::DeleteKey, 0, &Keyboard::Delete},
};

void Keyboard::KeyDownOf(lister::ListId list, int code, int shift) {
  const workspace::CurrentListScope scope(workspace_, list);
  for (const OwnRow& row : OwnRows) {
    if (row.Code != code || (shift & row.Shift) != row.Shift) continue;
    try {
      (this->*row.Act)(shift);
    } catch (const std::exception&) {
      TellError();
    }
    return;
  }
}

void Keyboard::TellError() {
  messenger_.Message("An error occurred while handling which keys were pressed.",
                     forms::MessageKind::Ok);
}

void Keyboard::RenameItems(int) {
  actions_.RenameItems();
}

void Keyboard::ShowProperties(int) {
  if (Current() == nullptr) return;
  Current()->PrepareSelectionKeyboard();
  actions_.ShowShellMenu(MenuMode::Properties);
}

void Keyboard::Refresh(int) {
  if (Current() != nullptr) Current()->RefreshList();
}

void Keyboard::KeyUp() {
  workspace_.KeyArmed = true;
  ResetStartItems();
}

void Keyboard::Activated(platform::HeldKeys held) {
  if (!held.Any) workspace_.KeyArmed = true;
  if (held.Space) return;
  workspace_.SpaceHeld = false;
  ResetStartItems();
}

void Keyboard::ResetStartItems() {
  workspace_.ForEachList([](lister::ListerControl& list) { list.ResetStartItem(); });
}

void Keyboard::Rename(int) {
  actions_.RenameItem(true);
}

void Keyboard::Help(int) {
  actions_.OpenHelp();
}

void Keyboard::SelectAll(int) {
  if (Active() == nullptr) return;
  if (lister::IsFileList(workspace_.ActiveList)) {
    Active()->SelectAll();
  } else {
    Active()->SelectAll("none");
  }
}

void Keyboard::TakeFocus(int) {
  if (Active() != nullptr) Active()->TakeFocus();
}

// Caught ahead of what comes after, on purpose.
void Keyboard::Drop(int) {}

void Keyboard::Cut(int) {
  if (workspace_.ShellVerbMode != 0) {
    actions_.ShowShellMenu(MenuMode::Cut);
  } else if (Current() != nullptr) {
    KeepForPaste(platform::MoveWord, *Current());
  }
}

// Copying prepares the selection and cutting does not.
void Keyboard::Copy(int) {
  if (Current() == nullptr) return;
  if (workspace_.ShellVerbMode != 0) {
    Current()->PrepareSelectionKeyboard();
    actions_.ShowShellMenu(MenuMode::Copy);
  } else {
    KeepForPaste(platform::CopyWord, *Current());
  }
}

void Keyboard::KeepForPaste(std::string_view action, lister::ListerControl& current) {
  current.PrepareSelectionKeyboard();
  current.FirstSelected();
  workspace_.InternalClipSource = workspace_.CurrentList;
  workspace_.InternalClipAction = action;
}

void Keyboard::Paste(int) {
  if (Current() != nullptr && Current()->ShowsFound()) {
    messenger_.Message("This list shows what was found, which is no folder to put items in.",
                       forms::MessageKind::Ok);
    return;
  }
  if (workspace_.ShellVerbMode != 0) {
    actions_.ShowShellMenu(MenuMode::Paste);
    return;
  }
  const std::string folder = Current() == nullptr ? "" : Current()->PasteFolder();
  if (folder.empty()) return;
  actions_.FileOperate(workspace_.InternalClipAction, workspace_.InternalClipSource,
                       workspace_.CurrentList, folder);
  workspace_.InternalClipSource = lister::NoList;
}

void Keyboard::Delete(int shift) {
  actions_.DeleteSelection((shift & ShiftDown) != 0);
}

}  // namespace tarnwell::commands
