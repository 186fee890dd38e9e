#include "fileops/DropItems.h"

#include <utility>

#include "base/Text.h"
#include "fileops/Destination.h"
#include "fileops/popCopyMove.h"

namespace tarnwell::fileops {

void DropCommand::DropItems(lister::ListId list, const lister::Drop& drop) {
  workspace_.ResizeAction.clear();
  const lister::ListId source = std::exchange(workspace_.DragSourceList, lister::ForeignList);
  const std::string destination = DestinationOf(list);
  if (destination.empty()) return;
  const Answer answer = drop.Action.empty() ? Ask(drop.SourceText, destination)
                                            : Answer{.Word = drop.Action, .Folder = destination};
  fields_.DialogResult = answer.Word;
  operations_.FileOperate(answer.Word, source, list, answer.Folder, false, drop.Items);
}

void DropCommand::SendSelected(std::string_view word, lister::ListId source,
                               lister::ListId target) {
  lister::ListerControl& from = workspace_.Lists[source];
  from.PrepareSelectionKeyboard();
  const std::string text = from.FirstSelected();
  const std::string items = from.ActiveItemName();  // the list may make another one meanwhile
  if (items.empty()) {
    messenger_.Message(text.empty()
                           ? "Nothing is selected to " + std::string(word) + "."
                           : "A drive does not go as a whole. Please select what is in it.",
                       forms::MessageKind::Ok);
    return;
  }
  const lister::ListerControl& to = workspace_.Lists[target];
  const std::string destination = to.PasteFolder();
  if (destination.empty()) {
    messenger_.Message(
        to.ShowsFound() ? "The other list shows what was found, which is no folder to put items in."
                        : base::ForDisplay(to.CurrentFolder()) + " is not there any more.",
        forms::MessageKind::Ok);
    return;
  }
  const Answer answer = Ask(text, destination, word);
  operations_.FileOperate(answer.Word, source, target, answer.Folder, false, items);
}

void DropCommand::Paste(lister::ListId source, lister::ListId target, bool skipDialog) {
  workspace_.ResizeAction.clear();
  lister::ListerControl& from = workspace_.Lists[source];
  const std::string destination = DestinationOf(target);
  std::string text = destination.empty() ? "" : from.FirstSelected();
  const bool isPath = text.find(syntax_.Separator) != std::string::npos;
  const bool isThere = isPath && destination == text + syntax_.Separator;
  if (!text.empty() && !isThere) {
    if (isPath) text = "Folder: " + std::string(syntax_.LastComponent(text));
    const Answer answer = skipDialog
                              ? Answer{.Word = workspace_.InternalClipAction, .Folder = destination}
                              : Ask(text, destination);
    operations_.FileOperate(answer.Word, source, target, answer.Folder, false, "");
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

DropCommand::Answer DropCommand::Ask(const std::string& text, const std::string& destination,
                                     std::string_view framed) {
  // By the answer to a delete, what is dropped would be gone for good.
  std::string word = fields_.DialogResult == platform::DeleteWord ? "" : fields_.DialogResult;
  std::string typed = destination;
  for (;;) {
    popCopyMove dialog(host_);
    host_.Open(dialog);
    dialog.txtSource.Text = text;
    dialog.txtDest.Text = typed;
    dialog.cmdCopy.Default = framed != platform::MoveWord;
    dialog.cmdMove.Default = !dialog.cmdCopy.Default;
    dialog.Ask(workspace_.Form);
    typed = fields_.DialogDestination = dialog.txtDest.Text;
    word = fields_.DialogResult = dialog.Result.value_or(word);
    if (word != platform::CopyWord && word != platform::MoveWord)
      return {.Word = word, .Folder = typed};
    std::string whole = WholeDestination(typed, destination, drives_.HomeFolder(), syntax_);
    const base::Status status = files_.CheckTarget(whole);
    if (status) return {.Word = word, .Folder = std::move(whole)};
    messenger_.Message(status.Reason, forms::MessageKind::Ok);
    word = platform::CancelWord;  // if the next one is closed without a button
  }
}

}  // namespace tarnwell::fileops
