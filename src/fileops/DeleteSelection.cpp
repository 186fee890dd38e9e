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
  if (permanent) return DeleteForGood(remembered, shown);
  platform_.WhenDone(shellDelete_(), [this, remembered](const auto&) { FollowUp(remembered, ""); });
}

void DeleteCommand::FollowUp(lister::ListId list, const std::string& items) {
  if (lister::IsFileList(list)) {
    // What was found has been looked at again already.
    if (!workspace_.Lists[list].ShowsFound()) workspace_.Lists[list].RefreshList();
    return;
  }
  if (ShowsOneOf(items, workspace_.Lists[list], syntax_)) navigation_.MoveFocusUpOneFolder(list);
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

void DeleteCommand::DeleteForGood(lister::ListId list, const std::string& shown) {
  popDelete dialog(host_);
  host_.Open(dialog);
  dialog.AskForGood();
  if (Ask(dialog, shown, std::string(platform::CancelWord)) == platform::CancelWord) return;
  const std::string items = workspace_.Lists[list].ActiveItemName();
  const platform::OperationRequest request{.Function = platform::FileFunction::Delete,
                                           .Items = items,
                                           .Destination = base::ItemList::TextOf({""}),
                                           .Flags = platform::NoConfirmation};
  platform_.WhenDone(
      platform_.Start({.Kind = platform::CommandKind::Delete, .Requests = {request}}),
      [this, list, items](const auto&) {
        lists::LookAtPanes(workspace_);
        lists::LookAgainAtFound(workspace_);
        FollowUp(list, items);
      });
}

}  // namespace tarnwell::fileops
