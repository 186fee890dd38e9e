// The keys of the main window: those that are commands, and what Shift, Ctrl and the arrows tell
// the active list. Sees each key before the control that has the keyboard, and keeps none from it.
#pragma once

#include <string>

#include "forms/Messenger.h"
#include "platform/Keyboard.h"
#include "shellmenu/MenuWords.h"
#include "workspace/Workspace.h"

namespace tarnwell::commands {

// The work behind the keys, which other parts of the program do.
class KeyActions {
 public:
  virtual ~KeyActions() = default;
  virtual void EscapeKey() = 0;
  virtual void RenameItem(bool byKey) = 0;
  // Of all that is selected, at once.
  virtual void RenameItems() = 0;
  virtual void FindFiles() = 0;
  virtual void OpenHelp() = 0;
  // Carries out the entry of the context menu without showing it.
  virtual void ShowShellMenu(shellmenu::MenuMode mode) = 0;
  virtual void DeleteSelection(bool permanent) = 0;
  // The menu of the title of the pane that has the current list.
  virtual void OpenTitleMenu() = 0;
  // Copies or moves what is selected in the source list to the folder of the target list.
  virtual void FileOperate(const std::string& action, lister::ListId source, lister::ListId target,
                           const std::string& folder) = 0;
};

class Keyboard {
 public:
  Keyboard(workspace::Workspace& workspace, forms::Messenger& messenger, KeyActions& actions)
      : workspace_(workspace), messenger_(messenger), actions_(actions) {}

  // `code` is one of lister::KeyCode, or that of a letter's capital; `shift` a mask of
  // lister::ShiftMask. While the command line has the keyboard nothing happens.
  void KeyDown(int code, int shift);
  // The same for a list that is in no pane, and has the keyboard itself.
  void KeyDownOf(lister::ListId list, int code, int shift);
  // Any key: the next one may act.
  void KeyUp();
  // The window has the keys again, and some may have come up elsewhere.
  void Activated(platform::HeldKeys held);

 private:
  struct Row;
  static const Row Rows[];
  struct OwnRow;
  static const OwnRow OwnRows[];

  void Handle(int code, int shift);
  void TellError();
  void ResetStartItems();
  void Rename(int shift);
  void Help(int shift);
  void SelectAll(int shift);
  void TakeFocus(int shift);
  void Drop(int shift);
  void Cut(int shift);
  void Copy(int shift);
  void Paste(int shift);
  void Delete(int shift);
  void RenameItems(int shift);
  void ShowProperties(int shift);
  void Refresh(int shift);
  void KeepForPaste(std::string_view action, lister::ListerControl& current);

  lister::ListerControl* Active() const { return workspace_.Lists.Find(workspace_.ActiveList); }
  lister::ListerControl* Current() const { return workspace_.Lists.Find(workspace_.CurrentList); }

  workspace::Workspace& workspace_;
  forms::Messenger& messenger_;
  KeyActions& actions_;
};

}  // namespace tarnwell::commands
