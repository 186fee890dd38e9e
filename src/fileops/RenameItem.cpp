#include "fileops/RenameItem.h"

#include <exception>
#include <stdexcept>

#include "base/Text.h"
#include "fileops/popRename.h"
#include "lists/WatchPanes.h"

namespace tarnwell::fileops {

void RenameCommand::RenameItem(bool byKey) {
  lister::ListerControl* const list = workspace_.Lists.Find(workspace_.CurrentList);
  if (list == nullptr) return;
  const lists::WatchBracket watch(*list);
  try {
    AskAndRename(*list, byKey);
  } catch (const std::exception& error) {
    messenger_.Message(std::string("Sorry, the renaming could not be performed.\r\n\r\n"
                                   "The system returned the following message: \r\n\r\n") +
                           error.what(),
                       forms::MessageKind::Ok);
  }
}

void RenameCommand::AskAndRename(lister::ListerControl& list, bool byKey) {
  fields_.DialogResult.clear();
  std::string folder, name;
  std::int32_t kind = 0;
  list.GetClickedItem(folder, name, byKey, kind);
  if (kind == lister::ClickedEmptySpace || folder.empty() || name.empty()) return;
  popRename dialog(host_, fields_);
  host_.Open(dialog);
  dialog.txtSource.Text = dialog.txtDest.Text = name;
  dialog.SelLength = base::CodePointCount(name);
  dialog.PositionCursor();
  dialog.CentreOn(workspace_.Form);
  host_.ShowModal(dialog, &workspace_.Form);
  if (fields_.DialogResult.empty() || fields_.DialogResult == "cancel") return;
  const base::PathSyntax& syntax = files_.Syntax();
  // It would move the item to another folder.
  if (fields_.DialogResult.find(syntax.Separator) != std::string::npos) {
    throw std::runtime_error(std::string("A name cannot hold the character ") + syntax.Separator +
                             ".");
  }
  list.WatchStop();
  const base::Status status =
      files_.Rename(syntax.Join(folder, name), syntax.Join(folder, fields_.DialogResult));
  if (!status) throw std::runtime_error(status.Reason);
  list.RefreshList();
}

}  // namespace tarnwell::fileops
