// The command that writes what the current list shows to a file that the user names.
#pragma once

#include <optional>
#include <string>

#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/SystemInfo.h"
#include "workspace/Workspace.h"

namespace tarnwell::tools {

struct ListingServices {
  forms::FormHost& Host;
  platform::FileSystem& Files;
  const platform::Drives& Drives;
  platform::Dialogs& Dialogs;
  platform::SystemInfo& System;
  const platform::Clock& Clock;
  forms::Messenger& Messenger;
};

class FileListing {
 public:
  FileListing(workspace::Workspace& space, const ListingServices& services)
      : space_(space), services_(services) {}

  // Asks for the file, in the folder of the last listing, and has the list write it; a failure is
  // told by a message. The folder is remembered ahead of the writing. Lets messages through; called
  // meanwhile it does nothing. Afterwards no folder is held as the current one.
  void SaveFileListing();
  // The program ends: what is being written may go, and nothing more is told.
  void GiveUp() { isGivenUp_ = true; }

 private:
  enum class Outcome { Saved, Cancelled, Dropped, Failed };
  Outcome Save();
  // Nothing where the user cancels.
  std::optional<std::string> AskFile() const;

  workspace::Workspace& space_;
  ListingServices services_;
  bool isRunning_ = false;
  bool isGivenUp_ = false;
};

// "FileListing26-11-22-093005.csv".
std::string ListingName(const platform::LocalTime& time);

}  // namespace tarnwell::tools
