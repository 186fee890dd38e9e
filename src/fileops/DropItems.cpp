#include "fileops/DropItems.h"

#include <utility>

#include "fileops/Destination.h"
#include "fileops/popCopyMove.h"

namespace tarnwell::fileops {

void DropCommand::DropItems(lister::ListId list, const lister::Drop& drop) {
  workspace_.ResizeAction.clear();
  const lister::ListId source = std::exchange(workspace_.DragSourceList, lister::ForeignList);
  std::string destination = DestinationOf(list);
  if (destination.empty()) return;
  if (drop.Action.empty()) {
    destination = Ask(drop.SourceText, destination);
  } else {
    fields_.DialogResult = drop.Action;
  }
  operations_.FileOperate(fields_.DialogResult, source, list, destination, false, drop.Items);
}

void DropCommand::Paste(lister::ListId source, lister::ListId target, bool skipDialog) {
  workspace_.ResizeAction.clear();
  lister::ListerControl& from = workspace_.Lists[source];
  std::string destination = DestinationOf(target);
  std::string text = destination.empty() ? "" : from.FirstSelected();
  const bool isPath = text.find(syntax_.Separator) != std::string::npos;
  const bool isThere = isPath && destination == text + syntax_.Separator;
  if (!text.empty() && !isThere) {
    if (isPath) text = "Folder: " + std::string(syntax_.LastComponent(text));
    if (!skipDialog) destination = Ask(text, destination);
    operations_.FileOperate(skipDialog ? workspace_.InternalClipAction : fields_.DialogResult,
                            source, target, destination, false, "");
  }
  from.EndAction();
  from.EndDrop();
}

// What stands ahead of a network path is for showing only.
std::string DropCommand::DestinationOf(lister::ListId list) const {
  const std::string folder = workspace_.Lists[list].DropFolder();
  if (folder.empty()) return "";
  const std::size_t network = syntax_.FindNetworkStart(folder);
  return syntax_.AddSeparator(network == std::string::npos ? folder : folder.substr(network));
}

std::string DropCommand::Ask(const std::string& text, const std::string& destination) {
  // The word of another dialog must not stand: what is dropped would be gone for good.
  if (fields_.DialogResult == "delete") fields_.DialogResult.clear();
  std::string typed = destination;
  for (;;) {
    typed = AskOnce(text, typed);
    if (fields_.DialogResult != "copy" && fields_.DialogResult != "move") return typed;
    std::string whole = WholeDestination(typed, destination, drives_.HomeFolder(), syntax_);
    const base::Status status = files_.CheckTarget(whole);
    if (status) return whole;
    messenger_.Message(status.Reason, forms::MessageKind::Ok);
    fields_.DialogResult = "cancel";  // if the next one is closed without a button
  }
}

std::string DropCommand::AskOnce(const std::string& text, const std::string& destination) {
  popCopyMove dialog(host_, fields_);
  host_.Open(dialog);
  dialog.txtSource.Text = text;
  dialog.txtDest.Text = destination;
  dialog.CentreOn(workspace_.Form);
  host_.ShowModal(dialog, &workspace_.Form);
  return fields_.DialogDestination;
}

}  // namespace tarnwell::fileops
