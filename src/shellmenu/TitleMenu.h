// The menu of a pane's title: leads to the folders above the open one, to those that the pane has
// shown, and to bookmarks; bookmarks the open folder, and gives the pane its accent.
#pragma once

#include "lists/Navigation.h"
#include "platform/PopupMenu.h"
#include "workspace/Workspace.h"

namespace tarnwell::shellmenu {

class TitleMenu {
 public:
  TitleMenu(workspace::Workspace& workspace, const base::PathSyntax& syntax,
            lists::Navigation& navigation, platform::PopupMenus& popups)
      : workspace_(workspace), syntax_(syntax), navigation_(navigation), popups_(popups) {}

  // Shows it below the title's picture, and does what is chosen. A folder opens by the current
  // list where that is one of the pane's, else by its folder list.
  void Show(int pane);

 private:
  workspace::Workspace& workspace_;
  const base::PathSyntax& syntax_;
  lists::Navigation& navigation_;
  platform::PopupMenus& popups_;
};

}  // namespace tarnwell::shellmenu
