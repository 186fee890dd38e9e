#include "shellmenu/MenuDispatch.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "lister/rows/ItemColours.h"
#include "lists/ShowPlaced.h"
#include "shellmenu/ColourCoding.h"
#include "shellmenu/MenuWords.h"
#include "shellmenu/ShellMenuTables.h"

namespace tarnwell::shellmenu {
namespace {

constexpr int PasteAfterCut = 2;

bool IsColourWord(const std::string& word) {
  return std::ranges::find(lister::ItemColours, word, &lister::ItemColourEntry::Word) !=
         lister::ItemColours.end();
}

}  // namespace

struct MenuDispatch::Row {
  std::string_view Word;
  void (MenuDispatch::*Act)(const Choice& choice);
};

const MenuDispatch::Row MenuDispatch::Rows[] = {
    {AddToSlot, &MenuDispatch::ChangeBookmark},    {ClearSlot, &MenuDispatch::ChangeBookmark},
    {RefreshWord, &MenuDispatch::ForgetCutMark},   {CopyWord, &MenuDispatch::CutOrCopy},
    {CutWord, &MenuDispatch::CutOrCopy},           {PasteWord, &MenuDispatch::Paste},
    {DeleteWord, &MenuDispatch::Delete},           {RenameWord, &MenuDispatch::Rename},
    {CommandLineWord, &MenuDispatch::CommandLine}, {CompactWord, &MenuDispatch::CompactDatabase},
    {NewFolderWord, &MenuDispatch::NewFolder},     {DuplicateWord, &MenuDispatch::Duplicate},
};

void MenuDispatch::Dispatch(MenuOutcome outcome, const std::vector<std::string>& paths) {
  std::string& word = outcome.Word;
  const int slot = TakeSlot(word);
  workspace_.Form.Refresh();
  try {
    cuts_.CutPasteCount = word == CutWord ? 1 : word == PasteWord ? cuts_.CutPasteCount + 1 : 0;
    Act({word, slot, paths, outcome.Placed});
  } catch (const std::exception&) {
    // The commands tell what is to be told.
  }
}

void MenuDispatch::Act(const Choice& choice) {
  const auto* const row = std::ranges::find(Rows, choice.Word, &Row::Word);
  if (row != std::end(Rows)) return (this->*row->Act)(choice);
  if (!IsColourWord(choice.Word)) return;
  ColourItems(workspace_.Lists[workspace_.CurrentList], choice.Word, workspace_.Settings,
              messenger_);
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
  RefreshCurrent();
  lists::ShowPlaced(workspace_, workspace_.CurrentList, choice.Placed);
  if (cuts_.CutPasteCount != PasteAfterCut) return;
  const lister::ListId source = std::exchange(cuts_.CutSourceList, lister::NoList);
  if (source >= 0) workspace_.Lists[source].RefreshList();
}

void MenuDispatch::Delete(const Choice&) {
  if (workspace_.ShellVerbMode == 0) {
    commands_.Delete.DeleteSelection(false);
  } else {
    RefreshCurrent();
  }
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
  const std::vector<platform::PlacedItem> placed = commands_.Duplicate.DuplicateItems(choice.Paths);
  RefreshCurrent();
  lists::ShowPlaced(workspace_, workspace_.CurrentList, placed);
}

void MenuDispatch::RefreshCurrent() {
  workspace_.Lists[workspace_.CurrentList].RefreshList();
}

}  // namespace tarnwell::shellmenu
