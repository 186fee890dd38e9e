#include "fileops/RenameItem.h"

#include <exception>
#include <utility>

#include "base/ItemList.h"
#include "base/Text.h"
#include "fileops/ItemName.h"
#include "fileops/popRename.h"
#include "lister/list/ClickedItem.h"
#include "lists/ShowPlaced.h"
#include "lists/WatchPanes.h"

namespace tarnwell::fileops {

void RenameCommand::RenameItem(bool byKey) {
  lister::ListerControl* const list = workspace_.Lists.Find(workspace_.CurrentList);
  if (list == nullptr) return;
  const lists::WatchBracket watch(workspace_, *list);
  fields_.DialogResult.clear();
  std::string folder, name;
  std::int32_t kind = 0;
  list->GetClickedItem(folder, name, byKey, kind);
  if (kind == lister::ClickedEmptySpace || folder.empty() || name.empty()) return;
  const std::string refusal = platform_.Refusal(
      platform::FileFunction::Rename, base::ItemList::TextOf({files_.Syntax().Join(folder, name)}));
  if (!refusal.empty()) {
    messenger_.Message(refusal, forms::MessageKind::Ok);
    return;
  }
  std::string offered = name;
  do {
    offered = AskOnce(*list, folder, name, offered);
  } while (!offered.empty());
}

std::string RenameCommand::AskOnce(lister::ListerControl& list, const std::string& folder,
                                   const std::string& name, const std::string& offered) {
  const lists::WatchBracket watch(workspace_, list);
  std::string refused;
  std::string wanted = offered;
  try {
    if (const base::Status status = AskAndRename(list, folder, name, wanted); !status) {
      refused = wanted;
      TellFailure(status.Reason);
    }
  } catch (const std::exception& error) {
    TellFailure(error.what());
  }
  return refused;
}

base::Status RenameCommand::AskAndRename(lister::ListerControl& list, const std::string& folder,
                                         const std::string& name, std::string& wanted) {
  fields_.DialogResult.clear();
  popRename dialog(host_);
  host_.Open(dialog);
  dialog.txtSource.Text = name;
  dialog.txtDest.Text = wanted;
  dialog.SelLength = base::CodePointCount(wanted);
  dialog.PositionCursor();
  dialog.Ask(workspace_.Form);
  wanted = fields_.DialogResult = dialog.Result.value_or("");
  if (wanted.empty() || wanted == platform::CancelWord) return {};
  const base::PathSyntax& syntax = files_.Syntax();
  if (std::string fault = FaultOfName(wanted, syntax); !fault.empty()) {
    return {.Code = -1, .Reason = std::move(fault)};
  }
  list.WatchStop();
  const platform::PlacedItem item{syntax.Join(folder, name), syntax.Join(folder, wanted)};
  base::Status status = files_.Rename(item.From, item.To);
  if (!status) return status;
  platform_.NoteDone(platform::CommandKind::Rename, {item});
  lists::FollowMoved(workspace_, {item});
  list.RefreshList();
  lists::ShowPlaced(workspace_, list.Id(), {item});
  return status;
}

void RenameCommand::TellFailure(const std::string& reason) {
  messenger_.Message(
      "Sorry, the renaming could not be performed.\r\n\r\n"
      "The system returned the following message: \r\n\r\n" +
          reason,
      forms::MessageKind::Ok);
}

}  // namespace tarnwell::fileops
