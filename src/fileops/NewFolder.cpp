#include "fileops/NewFolder.h"

#include <exception>
#include <stdexcept>
#include <string>

#include "fileops/popNewFolder.h"
#include "lists/WatchPanes.h"

namespace tarnwell::fileops {
namespace {

const std::string Sorry = "Sorry, you cannot make a new folder here.";

}  // namespace

void NewFolder::CreateNewFolder(bool byKey) {
  lister::ListerControl* const list = workspace_.Lists.Find(workspace_.CurrentList);
  if (list == nullptr) return;
  const lists::WatchBracket watch(*list);
  try {
    AskAndMake(*list, byKey);
  } catch (const std::exception& error) {
    messenger_.Message(
        Sorry + "\r\n\r\nThe system returned the following message:\r\n\r\n     " + error.what(),
        forms::MessageKind::Ok);
  }
  list->RefreshList();
}

void NewFolder::AskAndMake(lister::ListerControl& list, bool byKey) {
  fields_.DialogResult.clear();
  const std::string folder = list.TargetFolder(byKey);
  if (folder.empty()) {
    messenger_.Message(Sorry, forms::MessageKind::Ok);
    return;
  }
  popNewFolder dialog(host_, fields_);
  dialog.txtDest.Text = folder;
  host_.Open(dialog);
  dialog.CentreOn(workspace_.Form);
  host_.ShowModal(dialog, &workspace_.Form);
  if (fields_.DialogResult.empty() || fields_.DialogResult == "cancel") return;
  list.WatchStop();
  const base::Status status = files_.MakeFolder(folder + fields_.DialogResult);
  if (!status) throw std::runtime_error(status.Reason);
}

}  // namespace tarnwell::fileops
