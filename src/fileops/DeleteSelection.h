// The command that deletes what is selected.
#pragma once

#include <functional>

#include "fileops/FileOperate.h"
#include "fileops/popDelete.h"
#include "forms/FormHost.h"

namespace tarnwell::fileops {

class DeleteCommand {
 public:
  // Carries out the Delete entry of the platform's own menu on the selection, which asks and keeps
  // undo by itself. Gives the operation, or NoOperation.
  using ShellDelete = std::function<platform::OperationId()>;

  DeleteCommand(workspace::Workspace& workspace, const base::PathSyntax& syntax,
                platform::FileOperation& platform, FileOperations& operations,
                lists::Navigation& navigation, forms::FormHost& host, forms::Messenger& messenger,
                DialogFields& fields, ShellDelete shellDelete)
      : workspace_(workspace),
        syntax_(syntax),
        platform_(platform),
        operations_(operations),
        navigation_(navigation),
        host_(host),
        messenger_(messenger),
        fields_(fields),
        shellDelete_(std::move(shellDelete)) {}

  // Deletes the selection of the current list: for good after a question, or by the platform's own
  // way. A drive is never deleted, and nothing is said of it; of what else the platform keeps from
  // being deleted, it is said why.
  void DeleteSelection(bool permanent);

 private:
  // Gives the word of the button, or `otherwise` if the dialog is closed by other means.
  std::string Ask(popDelete& dialog, const std::string& shown, const std::string& otherwise);
  // The program's own way, with a dialog for both kinds.
  void DeleteByDialog(lister::ListId list, const std::string& shown, bool permanent);
  void DeleteForGood(lister::ListId list, const std::string& shown);
  // What is done once `items` are gone, or none where the platform has deleted.
  void FollowUp(lister::ListId list, const std::string& items);

  workspace::Workspace& workspace_;
  const base::PathSyntax& syntax_;
  platform::FileOperation& platform_;
  FileOperations& operations_;
  lists::Navigation& navigation_;
  forms::FormHost& host_;
  forms::Messenger& messenger_;
  DialogFields& fields_;
  ShellDelete shellDelete_;
};

}  // namespace tarnwell::fileops
