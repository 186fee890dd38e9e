// The slots that hold bookmarks, as the context menu changes them.
#pragma once

#include <string>
#include <string_view>

#include "forms/Messenger.h"
#include "workspace/Workspace.h"

namespace tarnwell::shellmenu {

class Bookmarks {
 public:
  Bookmarks(workspace::Workspace& workspace, forms::Messenger& messenger)
      : workspace_(workspace), messenger_(messenger) {}

  // Slots 0 to 9; throws std::out_of_range for others. The word "CLEAR SLOT" empties the slot; any
  // other puts the clicked folder there, or leaves it as it is if no folder was clicked. The slots
  // get into the settings file when all settings do.
  void AddRemoveBookMark(int slot, std::string_view word);

 private:
  workspace::Workspace& workspace_;
  forms::Messenger& messenger_;
};

// The folder that the last click in the current list was for; empty for a file and for nothing. A
// failure is told by a message, and gives an empty text.
std::string GetClickedFolder(const workspace::Workspace& workspace, forms::Messenger& messenger);

}  // namespace tarnwell::shellmenu
