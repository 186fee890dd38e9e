// The road of a folder: from the settings into a folder list, from the folder list to the file list
// of its pane, and from both into the title, the menu and the toolbar.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/PathSyntax.h"
#include "forms/FormHost.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

// A path as menus and tool-tips show it: more than 49 characters become the first 3, "..." and the
// last 44.
std::string CutPath(std::string_view path);

class Navigation {
 public:
  Navigation(workspace::Workspace& workspace, const base::PathSyntax& syntax, forms::FormHost& host)
      : workspace_(workspace), syntax_(syntax), host_(host) {}

  // Finds the folder with which the pane opens, shows its path and loads its drive. A folder that
  // cannot be listed gives the root of the default drive, and the file list's status line names
  // it and the nearest folder above it that can be.
  void LoadFolders(int pane);
  void LoadPaneDrive(int pane);

  // Hands the folder that a folder list has open to the file list of its pane. The only way in
  // which a folder gets from the one to the other. May be called again while it runs: the newest
  // hand-over wins. The ids of file lists do nothing.
  void UpdateChildPane(lister::ListId list);

  // Where the file list of the list's pane shows what was found, it shows the pane's folder again.
  // False where it does not.
  bool LeaveFound(lister::ListId list);

  // Opens a folder from the file list of a pane, in whose folder list `branch`, which holds it, is
  // expanded. A folder on another drive shows that drive.
  void OpenChildFolder(lister::ListId list, const std::string& folder, const std::string& branch);

  // Shows the drive, which holds the folder, in the list's pane, and opens the folder there.
  void OpenOnDrive(lister::ListId list, std::string drive, const std::string& folder);

  // Opens the folder above the one that the list's pane shows; at a root, nothing. From a list of
  // what was found it leads to the pane's folder.
  void MoveFocusUpOneFolder(lister::ListId list);

  // Opens the folder at that place of the pane's history, which is Here from then on. A place
  // beyond its ends does nothing; a folder that cannot be opened any more is told by StatusMessage,
  // and forgotten.
  void OpenFromHistory(int pane, std::size_t place);

 private:
  workspace::Workspace& workspace_;
  const base::PathSyntax& syntax_;
  forms::FormHost& host_;
  // The last folder that each pane's file list was given. One for each pane: a folder handed over
  // in another pane meanwhile is no newer folder of this one.
  workspace::PerPane<std::string> handedOverFolder_;
};

}  // namespace tarnwell::lists
