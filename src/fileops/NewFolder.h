// The command that makes a new folder in the current list.
#pragma once

#include "fileops/DialogFields.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/FileOperation.h"
#include "platform/FileSystem.h"
#include "workspace/Workspace.h"

namespace tarnwell::fileops {

class NewFolder {
 public:
  NewFolder(workspace::Workspace& workspace, platform::FileSystem& files,
            platform::FileOperation& platform, forms::FormHost& host, forms::Messenger& messenger,
            DialogFields& fields)
      : workspace_(workspace),
        files_(files),
        platform_(platform),
        host_(host),
        messenger_(messenger),
        fields_(fields) {}

  // Asks for the name and makes the folder where TargetFolder of the list says; `byKey` goes to
  // that. A failure is told by a message, and then the dialog asks anew. The list is read again in
  // every case.
  void CreateNewFolder(bool byKey);

 private:
  // Asks once, with the name that is offered. Gives the name if it was refused.
  std::string AskOnce(lister::ListerControl& list, bool byKey, const std::string& offered);
  // `name` is offered and gets what was typed, `made` the path of the new folder. Success as well
  // where nothing is to be made.
  base::Status AskAndMake(lister::ListerControl& list, bool byKey, std::string& name,
                          std::string& made);
  void TellFailure(const std::string& reason);

  workspace::Workspace& workspace_;
  platform::FileSystem& files_;
  platform::FileOperation& platform_;
  forms::FormHost& host_;
  forms::Messenger& messenger_;
  DialogFields& fields_;
};

}  // namespace tarnwell::fileops
