// Commands that the user types or asks for, in the folder of the current pane.
#pragma once

#include <string>

#include "base/PathSyntax.h"
#include "base/Status.h"
#include "forms/Messenger.h"
#include "platform/Launcher.h"
#include "workspace/Workspace.h"

namespace tarnwell::tools {

class CommandLine {
 public:
  CommandLine(workspace::Workspace& space, const base::PathSyntax& syntax,
              platform::Launcher& launcher, forms::Messenger& messenger)
      : space_(space), syntax_(syntax), launcher_(launcher), messenger_(messenger) {}

  // Enter in cboCommand. What is typed there up to its first blank is started in the folder of
  // txtCurrentPath, as that is written there, with the rest as parameters. With `shift` a terminal
  // stays open behind it. A command that cannot run gives no message.
  void Enter(bool shift);

  // A terminal in the folder that was clicked in the current list; in that of the list where it was
  // no folder. What fails is told by a message, also of the next one.
  void OpenCommandLine();
  // Opens the file of that path and " /compact", in the folder that was clicked.
  void CompactDatabase(const std::string& path);

 private:
  void Tell(const base::Status& status);

  workspace::Workspace& space_;
  const base::PathSyntax& syntax_;
  platform::Launcher& launcher_;
  forms::Messenger& messenger_;
};

}  // namespace tarnwell::tools
