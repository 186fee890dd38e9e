#include "shellmenu/MenuDispatch.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "lister/rows/ItemColours.h"
#include "lists/ShowPlaced.h"
#include "shellmenu/MenuWords.h"
#include "shellmenu/ShellMenuTables.h"

namespace tarnwell::shellmenu {
namespace {

constexpr int PasteAfterCut = 2;

bool IsColourWord(const std::string& word) {
  return std::ranges::find(lister::ItemColours, word, &lister::ItemColourEntry::Word) !=
         lister::ItemColours.end();
}

template <typename Work>
void WithoutErrors(Work work) {
  try {
    work();
  } catch (const std::exception&) {
    // The commands tell what is to be told.
  }
}

}  // namespace

struct MenuDispatch::Row {
  std::string_view Word;
  void (MenuDispatch::*Act)(const Choice& choice);
};

const MenuDispatch::Row MenuDispatch::Rows[] = {
    {AddToSlot, &MenuDispatch::ChangeBookmark},
    {ClearSlot, &MenuDispatch::ChangeBookmark},
    {RefreshWord, &MenuDispatch::ForgetCutMark},
    {CopyWord, &MenuDispatch::CutOrCopy},
    {CutWord, &MenuDispatch::CutOrCopy},
    {PasteWord, &MenuDispatch::Paste},
    {DeleteWord, &MenuDispatch::Delete},
    {RenameWord, &MenuDispatch::Rename},
    {CommandLineWord, &MenuDispatch::CommandLine},
    {CompactWord, &MenuDispatch::CompactDatabase},
    {NewFolderWord, &MenuDispatch::NewFolder},
    {DuplicateWord, &MenuDispatch::Duplicate},
    {UndoWord, &MenuDispatch::Undo},
    {RenameItemsWord, &MenuDispatch::RenameItems},
};

MenuFollowUp MenuDispatch::Dispatch(MenuOutcome outcome, const std::vector<std::string>& paths) {
  std::string& word = outcome.Word;
  const int slot = TakeSlot(word);
  MenuFollowUp next{.Operation = outcome.Started};
  workspace_.Form.Refresh();
  WithoutErrors([&] {
    cuts_.CutPasteCount = word == CutWord ? 1 : word == PasteWord ? cuts_.CutPasteCount + 1 : 0;
    Act({word, slot, paths, next});
  });
  if (next.Then) {
    next.Then = [then = std::move(next.Then)](const platform::OperationResult& result) {
      WithoutErrors([&] { then(result); });
    };
  }
  if (next.Operation != platform::NoOperation) return next;
  if (next.Then) next.Then({});
  return {};
}

void MenuDispatch::Act(const Choice& choice) {
  const auto* const row = std::ranges::find(Rows, choice.Word, &Row::Word);
  if (row != std::end(Rows)) return (this->*row->Act)(choice);
  if (!IsColourWord(choice.Word)) return;
  ColourItems(workspace_.Lists[workspace_.CurrentList], choice.Word, commands_.Coloured,
              workspace_.Settings, messenger_);
}

void MenuDispatch::ChangeBookmark(const Choice& choice) {
  bookmarks_.AddRemoveBookMark(choice.Slot, choice.Word);
}

// The word of "Create Shortcut": the new item comes into the lists by itself.
void MenuDispatch::ForgetCutMark(const Choice&) {
  cuts_.CutMarkList = lister::NoList;
}

void MenuDispatch::CutOrCopy(const Choice& choice) {
  if (workspace_.ShellVerbMode != 0) {
    cuts_.CutSourceList = workspace_.EnteredList;
    return;
  }
  const bool cuts = choice.Word == CutWord;
  if (cuts) cuts_.CutMarkList = workspace_.CurrentList;
  workspace_.InternalClipSource = workspace_.CurrentList;
  workspace_.InternalClipAction = cuts ? platform::MoveWord : platform::CopyWord;
  workspace_.Lists[workspace_.CurrentList].FirstSelected();
}

void MenuDispatch::Paste(const Choice& choice) {
  if (workspace_.ShellVerbMode == 0) {
    commands_.Operations.FileOperate(workspace_.InternalClipAction, workspace_.InternalClipSource,
                                     workspace_.CurrentList, choice.FirstPath(), true, "");
    workspace_.InternalClipSource = lister::NoList;
    return;
  }
  // By the time that it is done something else may have been cut.
  const lister::ListId source = cuts_.CutPasteCount == PasteAfterCut
                                    ? std::exchange(cuts_.CutSourceList, lister::NoList)
                                    : lister::NoList;
  choice.Next.Then = [target = RefreshLater(workspace_.CurrentList),
                      cutFrom = RefreshLater(source)](const platform::OperationResult&) {
    target();
    cutFrom();
  };
}

void MenuDispatch::Delete(const Choice& choice) {
  if (workspace_.ShellVerbMode == 0) {
    commands_.Delete.DeleteSelection(false);
    return;
  }
  choice.Next.Then = [list = RefreshLater(workspace_.CurrentList)](const auto&) { list(); };
}

void MenuDispatch::Rename(const Choice&) {
  commands_.Rename.RenameItem(false);
}

void MenuDispatch::CommandLine(const Choice&) {
  commands_.OpenCommandLine();
}

void MenuDispatch::CompactDatabase(const Choice& choice) {
  commands_.CompactDatabase(choice.FirstPath());
}

void MenuDispatch::NewFolder(const Choice&) {
  commands_.NewFolder.CreateNewFolder(false);
}

void MenuDispatch::Duplicate(const Choice& choice) {
  choice.Next = {.Operation = commands_.Duplicate.DuplicateItems(choice.Paths),
                 .Then = [list = RefreshLater(workspace_.CurrentList)](const auto&) { list(); }};
}

void MenuDispatch::RenameItems(const Choice& choice) {
  choice.Next = {.Operation = commands_.RenameItems.RenameItems(choice.Paths),
                 .Then = [list = RefreshLater(workspace_.CurrentList)](const auto&) { list(); }};
}

void MenuDispatch::Undo(const Choice&) {
  commands_.Undo();
}

void MenuDispatch::Refresh(lister::ListId list) {
  if (lister::ListerControl* const shown = workspace_.Lists.Find(list)) shown->RefreshList();
}

// A tree shows the folder whichever one it has open by then.
std::function<void()> MenuDispatch::RefreshLater(lister::ListId list) {
  const lister::ListerControl* const shown = workspace_.Lists.Find(list);
  if (shown == nullptr) return [] {};
  return [this, list, folder = shown->CurrentFolder()] {
    if (!lister::IsFileList(list) || workspace_.Lists[list].CurrentFolder() == folder) {
      Refresh(list);
    }
  };
}

}  // namespace tarnwell::shellmenu
