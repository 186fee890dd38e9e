// Has commands act on a list that is in no pane.
#pragma once

#include "workspace/Workspace.h"

namespace tarnwell::workspace {

// While this lives the list is the current one; nothing in the main window follows it. A pane that
// is entered meanwhile stays the current one.
class CurrentListScope {
 public:
  CurrentListScope(Workspace& workspace, lister::ListId list)
      : workspace_(workspace),
        list_(list),
        current_(std::exchange(workspace.CurrentList, list)),
        entered_(std::exchange(workspace.EnteredList, list)) {}
  ~CurrentListScope() {
    if (workspace_.CurrentList == list_) workspace_.CurrentList = current_;
    if (workspace_.EnteredList == list_) workspace_.EnteredList = entered_;
  }
  CurrentListScope(const CurrentListScope&) = delete;
  CurrentListScope& operator=(const CurrentListScope&) = delete;

 private:
  Workspace& workspace_;
  const lister::ListId list_;
  const lister::ListId current_;
  const lister::ListId entered_;
};

}  // namespace tarnwell::workspace
