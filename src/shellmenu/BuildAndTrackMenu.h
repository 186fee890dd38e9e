// The context menu itself: the platform's entries with the program's own above them, and the word
// for the entry that is chosen. Knows no list, and does nothing of what the program's own entries
// say.
#pragma once

#include <string>
#include <vector>

#include "forms/Messenger.h"
#include "platform/ContextMenu.h"
#include "platform/PopupMenu.h"
#include "shellmenu/MenuWords.h"
#include "workspace/Workspace.h"

namespace tarnwell::shellmenu {

struct MenuRequest {
  std::string FirstPath;  // of the items
  std::string Folder;     // that holds them
  std::vector<std::string> Names;
  bool IsDriveRoot = false;
  std::string Undo;  // see OwnEntriesFor
  MenuMode Mode = MenuMode::Show;
  int X = 0;  // pixels of the main window's client area
  int Y = 0;
};

struct MenuOutcome {
  std::string Word;  // of the entry; empty where nothing was chosen or found
  // What the platform has begun with it.
  platform::OperationId Started = platform::NoOperation;
};

class MenuBuilder {
 public:
  MenuBuilder(const workspace::Workspace& workspace, platform::ContextMenu& platform,
              platform::PopupMenus& popups, forms::Messenger& messenger)
      : workspace_(workspace), platform_(platform), popups_(popups), messenger_(messenger) {}

  // Shows the menu, or looks the mode's entry up in it unseen. Has the platform carry the entry out
  // if it is the platform's. Gives nothing where there is no menu.
  MenuOutcome BuildAndTrackMenu(const MenuRequest& request) const;

 private:
  using Entries = std::vector<platform::ContextEntry>;

  // Puts them above what the menu has. What stands in it, from the top down.
  Entries InsertAll(platform::PopupMenu& menu, Entries entries) const;

  const workspace::Workspace& workspace_;
  platform::ContextMenu& platform_;
  platform::PopupMenus& popups_;
  forms::Messenger& messenger_;
};

}  // namespace tarnwell::shellmenu
