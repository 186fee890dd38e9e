// The command that marks the differences between the file list of the current pane and those of the
// other open panes.
#pragma once

#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "workspace/Workspace.h"

namespace tarnwell::tools {

class FolderComparison {
 public:
  FolderComparison(workspace::Workspace& workspace, forms::FormHost& host,
                   forms::Messenger& messenger)
      : workspace_(workspace), host_(host), messenger_(messenger) {}

  // By the criteria of CompareMode. With two open panes both are marked, with more the others
  // alone.
  void CompareFolders();

 private:
  void Compare();

  workspace::Workspace& workspace_;
  forms::FormHost& host_;
  forms::Messenger& messenger_;
};

}  // namespace tarnwell::tools
