// The command that gives an item another name.
#pragma once

#include <string>

#include "fileops/DialogFields.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/FileOperation.h"
#include "platform/FileSystem.h"
#include "workspace/Workspace.h"

namespace tarnwell::fileops {

class RenameCommand {
 public:
  RenameCommand(workspace::Workspace& workspace, platform::FileSystem& files,
                platform::FileOperation& platform, forms::FormHost& host,
                forms::Messenger& messenger, DialogFields& fields)
      : workspace_(workspace),
        files_(files),
        platform_(platform),
        host_(host),
        messenger_(messenger),
        fields_(fields) {}

  // Asks for the new name of the current list's clicked item, or of that with the cursor when
  // `byKey`. What has no name of its own is passed over without a word; of what may not get another
  // one, it is said why. A name that cannot be given is told by a message, and then the dialog asks
  // anew.
  void RenameItem(bool byKey);

 private:
  // Asks once, with the name that is offered. Gives the name if it was refused.
  std::string AskOnce(lister::ListerControl& list, const std::string& folder,
                      const std::string& name, const std::string& offered);
  // `wanted` is offered and gets what was typed. Success as well where nothing is to be done.
  base::Status AskAndRename(lister::ListerControl& list, const std::string& folder,
                            const std::string& name, std::string& wanted);
  void TellFailure(const std::string& reason);

  workspace::Workspace& workspace_;
  platform::FileSystem& files_;
  platform::FileOperation& platform_;
  forms::FormHost& host_;
  forms::Messenger& messenger_;
  DialogFields& fields_;
};

}  // namespace tarnwell::fileops
