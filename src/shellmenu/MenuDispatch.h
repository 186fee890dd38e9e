// Does what the word from the context menu says, in the current list.
//
// What the platform has carried out, or begun, is followed up here: lists are read again.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "fileops/DeleteSelection.h"
#include "fileops/DuplicateItems.h"
#include "fileops/FileOperate.h"
#include "fileops/NewFolder.h"
#include "fileops/RenameItem.h"
#include "fileops/RenameItems.h"
#include "shellmenu/Bookmarks.h"
#include "shellmenu/BuildAndTrackMenu.h"
#include "shellmenu/ColourCoding.h"

namespace tarnwell::shellmenu {

// The commands that words lead to.
struct MenuCommands {
  fileops::NewFolder& NewFolder;
  fileops::RenameCommand& Rename;
  fileops::RenameItemsCommand& RenameItems;
  fileops::DuplicateCommand& Duplicate;
  fileops::FileOperations& Operations;
  fileops::DeleteCommand& Delete;
  std::function<void()> OpenCommandLine;
  std::function<void(const std::string& path)> CompactDatabase;
  std::function<void()> Undo;
  std::function<std::string()> UndoCaption;  // "Undo: " and what; empty where there is nothing
  NoteColours Coloured;                      // hears of what can be undone
};

// What has been cut or copied, as far as lists have to be read again for it.
struct CutPasteState {
  int CutPasteCount = 0;  // 1 after a cut, 2 after the paste that follows it
  lister::ListId CutSourceList = lister::NoList;
  lister::ListId CutMarkList = lister::NoList;  // has items that are marked as cut
};

// The operation that a word has led to, and what is to be done after it.
struct MenuFollowUp {
  platform::OperationId Operation = platform::NoOperation;
  platform::OperationDone Then = {};
};

class MenuDispatch {
 public:
  MenuDispatch(workspace::Workspace& workspace, forms::Messenger& messenger, MenuCommands commands)
      : workspace_(workspace),
        messenger_(messenger),
        commands_(std::move(commands)),
        bookmarks_(workspace, messenger) {}

  // `paths` are the items that the menu was for. What need not wait for an operation is done when
  // it returns. An error ends it, and what follows, without a word.
  MenuFollowUp Dispatch(MenuOutcome outcome, const std::vector<std::string>& paths);

 private:
  // A word with what it is for.
  struct Choice {
    const std::string& Word;
    int Slot;
    const std::vector<std::string>& Paths;
    MenuFollowUp& Next;
    const std::string& FirstPath() const { return Paths.at(0); }
  };
  struct Row;
  static const Row Rows[];

  void Act(const Choice& choice);
  void ChangeBookmark(const Choice& choice);
  void ForgetCutMark(const Choice& choice);
  void CutOrCopy(const Choice& choice);
  void Paste(const Choice& choice);
  void Delete(const Choice& choice);
  void Rename(const Choice& choice);
  void CommandLine(const Choice& choice);
  void CompactDatabase(const Choice& choice);
  void NewFolder(const Choice& choice);
  void Duplicate(const Choice& choice);
  void Undo(const Choice& choice);
  void RenameItems(const Choice& choice);
  // Reads the list again. What this gives does so later on, if the list still shows that folder.
  void Refresh(lister::ListId list);
  std::function<void()> RefreshLater(lister::ListId list);

  workspace::Workspace& workspace_;
  forms::Messenger& messenger_;
  MenuCommands commands_;
  Bookmarks bookmarks_;
  CutPasteState cuts_;
};

}  // namespace tarnwell::shellmenu
