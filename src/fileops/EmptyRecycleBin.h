// The command that deletes all that lies in the trash.
#pragma once

#include <string>
#include <vector>

#include "fileops/TrashRows.h"
#include "fileops/TrashTexts.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/FileOperation.h"
#include "platform/FileSystem.h"
#include "platform/MessagePump.h"
#include "platform/ShellWindows.h"
#include "platform/TrashCan.h"
#include "workspace/Workspace.h"

namespace tarnwell::fileops {

struct TrashServices {
  forms::FormHost& Host;
  const platform::FileSystem& Files;
  const platform::Drives& Drives;
  platform::TrashCan& Trash;
  platform::FileOperation& Operation;
  platform::MessagePump& Pump;
  forms::Messenger& Messages;
  TrashForms Forms;
};

class EmptyCommand {
 public:
  EmptyCommand(workspace::Workspace& workspace, const TrashServices& services)
      : workspace_(workspace), services_(services) {}

  // Of the volume that holds the path, or of all where it is empty. Asks first, over the open form
  // of that name or else the main form; of a trash with nothing in it nothing is said, and of one
  // that another operation works in, it is said which. The pointers are the hourglass until the
  // work is handed over. A call until then does nothing.
  void EmptyRecycleBin(std::string& rootPath, const std::string& parentName = "");

  // Where it has not asked yet, it asks no more.
  void GiveUp() { givenUp_ = true; }

 private:
  void Empty(const std::string& drive, const std::string& parentName);

  workspace::Workspace& workspace_;
  TrashServices services_;
  bool runs_ = false;
  bool givenUp_ = false;
};

// The same by the shell of the system, which asks, and tells how far it is. What it answers is
// ignored. The pointers are the hourglass until it is done.
void EmptyByShell(workspace::Workspace& workspace, forms::FormHost& host,
                  forms::Messenger& messages, platform::ShellWindows& shell,
                  const std::string& rootPath);

}  // namespace tarnwell::fileops
