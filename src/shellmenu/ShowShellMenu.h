// The context menu of a list: for what it is, what is chosen in it, and what comes of that. The
// keys that copy, cut, paste and delete go through the same menu without showing it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/NumberForms.h"
#include "platform/ShellWindows.h"
#include "shellmenu/BuildAndTrackMenu.h"
#include "shellmenu/CollectItems.h"
#include "shellmenu/MenuDispatch.h"

namespace tarnwell::shellmenu {

struct MenuPlatform {
  const base::PathSyntax& Syntax;
  const platform::Drives& Drives;
  platform::ContextMenu& Menu;
  platform::PopupMenus& Popups;
  platform::FileOperation& Operation;
  const platform::NumberForms& Forms;
  platform::ShellWindows* Shell = nullptr;  // null where the platform's menu shows properties
};

class ContextMenuCommand {
 public:
  ContextMenuCommand(workspace::Workspace& workspace, const MenuPlatform& platform,
                     forms::Messenger& messenger, MenuCommands commands)
      : workspace_(workspace),
        platform_(platform),
        messenger_(messenger),
        collector_(platform.Syntax, platform.Drives, messenger),
        builder_(workspace, platform.Menu, platform.Popups, messenger),
        undoCaption_(commands.UndoCaption),
        dispatch_(workspace, messenger, std::move(commands)) {}

  // After a right click: `clicked` is the path of the item under it, empty for none.
  void ShowForClick(float x, float y, const std::string& clicked, const std::string& path);

  // The menu of the current list, at a place in the main form in twips. It is for the item of
  // `path`, or if that is empty for what is clicked and selected. Modes other than Show carry out
  // an entry of the platform's unseen; Paste is for the list's folder, and so is Properties where
  // nothing is selected. No list follows its folder meanwhile, nor while an operation runs that
  // comes of it, which is what this gives. What the platform's entry throws comes out of here, once
  // all that has ended.
  platform::OperationId ShowShellMenu(float x, float y, std::string path, MenuMode mode);

 private:
  std::string OwnFolder(const lister::ListerControl& list) const;
  MenuOutcome Choose(const MenuItems& items, MenuRequest request);
  void Tell(const base::Status& status);
  // Of several items that are gone, all but the first in one message.
  void TellMoreGone(const std::vector<std::string>& names);

  workspace::Workspace& workspace_;
  MenuPlatform platform_;
  forms::Messenger& messenger_;
  ItemCollector collector_;
  MenuBuilder builder_;
  std::function<std::string()> undoCaption_;
  MenuDispatch dispatch_;
  std::string clickedItemPath_;
};

}  // namespace tarnwell::shellmenu
