#include "fileops/NewFolder.h"

#include <exception>
#include <string>
#include <utility>

#include "fileops/ItemName.h"
#include "fileops/popNewFolder.h"
#include "lists/ShowPlaced.h"
#include "lists/WatchPanes.h"

namespace tarnwell::fileops {
namespace {

const std::string Sorry = "Sorry, you cannot make a new folder here.";

}  // namespace

void NewFolder::CreateNewFolder(bool byKey) {
  lister::ListerControl* const list = workspace_.Lists.Find(workspace_.CurrentList);
  if (list == nullptr) return;
  std::string name;
  do {
    name = AskOnce(*list, byKey, name);
  } while (!name.empty());
}

std::string NewFolder::AskOnce(lister::ListerControl& list, bool byKey,
                               const std::string& offered) {
  const lists::WatchBracket watch(workspace_, list);
  std::string refused, made;
  std::string name = offered;
  try {
    if (const base::Status status = AskAndMake(list, byKey, name, made); !status) {
      refused = name;
      TellFailure(status.Reason);
    }
  } catch (const std::exception& error) {
    TellFailure(error.what());
  }
  list.RefreshList();
  if (!made.empty()) lists::ShowPlaced(workspace_, list.Id(), {{.From = "", .To = made}});
  return refused;
}

base::Status NewFolder::AskAndMake(lister::ListerControl& list, bool byKey, std::string& name,
                                   std::string& made) {
  fields_.DialogResult.clear();
  const std::string folder = list.TargetFolder(byKey);
  if (folder.empty()) {
    messenger_.Message(Sorry, forms::MessageKind::Ok);
    return {};
  }
  popNewFolder dialog(host_);
  host_.Open(dialog);
  dialog.txtDest.Text = folder;
  dialog.txtNewFolderName.Text = name;
  dialog.Ask(workspace_.Form);
  name = fields_.DialogResult = dialog.Result.value_or("");
  if (name.empty() || name == platform::CancelWord) return {};
  if (std::string fault = FaultOfName(name, files_.Syntax()); !fault.empty()) {
    return {.Code = -1, .Reason = std::move(fault)};
  }
  list.WatchStop();
  base::Status status = files_.MakeFolder(folder + name);
  if (!status) return status;
  made = folder + name;
  platform_.NoteDone(platform::CommandKind::NewFolder, {{.From = "", .To = made}});
  return status;
}

void NewFolder::TellFailure(const std::string& reason) {
  messenger_.Message(
      Sorry + "\r\n\r\nThe system returned the following message:\r\n\r\n     " + reason,
      forms::MessageKind::Ok);
}

}  // namespace tarnwell::fileops
