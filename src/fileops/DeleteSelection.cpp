#include "fileops/DeleteSelection.h"

#include <string>
#include <utility>

#include "fileops/ShownFolder.h"
#include "lists/WatchPanes.h"

namespace tarnwell::fileops {

void DeleteCommand::DeleteSelection(bool permanent) {
  const lister::ListId remembered = workspace_.CurrentList;
  lister::ListerControl* const list = workspace_.Lists.Find(remembered);
  if (list == nullptr) return;
  std::string shown = list->FirstSelected();
  // A drive's text ends so and it has no items; a file's name may end so as well.
  if (shown.empty() || (shown.ends_with(':') && list->ActiveItemName().empty())) return;
  const std::string refusal =
      platform_.Refusal(platform::FileFunction::Delete, list->ActiveItemName());
  if (!refusal.empty()) {
    messenger_.Message(refusal, forms::MessageKind::Ok);
    return;
  }
  if (shown.find(syntax_.Separator) != std::string::npos) {
    shown = "Folder: " + std::string(syntax_.LastComponent(shown));
  }
  fields_.DialogResult.clear();
  if (workspace_.ShellVerbMode == 0) {
    DeleteByDialog(remembered, shown, permanent);
    return;
  }
  std::string items;
  if (!permanent) {
    shellDelete_();
  } else if (!DeleteForGood(*list, shown, items)) {
    return;
  }
  if (lister::IsFileList(remembered)) {
    workspace_.Lists[workspace_.CurrentList].RefreshList();
    return;
  }
  if (ShowsOneOf(items, *list, syntax_)) navigation_.MoveFocusUpOneFolder(remembered);
}

std::string DeleteCommand::Ask(popDelete& dialog, const std::string& shown,
                               const std::string& otherwise) {
  dialog.txtSource.Text = shown;
  dialog.Ask(workspace_.Form);
  fields_.DialogResult = dialog.Result.value_or(otherwise);
  if (dialog.Result == platform::DeleteWord)
    fields_.SendToRecycle = dialog.chkSendToRecycleBin.Checked;
  return fields_.DialogResult;
}

void DeleteCommand::DeleteByDialog(lister::ListId list, const std::string& shown, bool permanent) {
  popDelete dialog(host_);
  host_.Open(dialog);
  dialog.chkSendToRecycleBin.Checked = !permanent;
  const std::string word = Ask(dialog, shown, "");
  if (word != platform::CancelWord) operations_.FileOperate(word, list, list, "", false, "");
}

bool DeleteCommand::DeleteForGood(lister::ListerControl& list, const std::string& shown,
                                  std::string& items) {
  popDelete dialog(host_);
  host_.Open(dialog);
  dialog.AskForGood();
  if (Ask(dialog, shown, std::string(platform::CancelWord)) == platform::CancelWord) return false;
  items = list.ActiveItemName();
  platform_.Run({.Function = platform::FileFunction::Delete,
                 .Items = items,
                 .Destination = base::ItemList::TextOf({""}),
                 .Flags = platform::NoConfirmation});
  lists::LookAtPanes(workspace_);
  return true;
}

}  // namespace tarnwell::fileops
