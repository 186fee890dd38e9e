// Opening, closing and setting up panes.
//
// Owns the rules of the pane set: at least one pane is open, a pane's lists are made when it is
// first shown and stay, and without auto expand every opening and closing makes the panes equal.
#pragma once

#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "workspace/FormLayout.h"
#include "workspace/Workspace.h"

namespace tarnwell::workspace {

// What setting up a pane asks of the rest of the program.
class PaneHooks {
 public:
  virtual ~PaneHooks() = default;
  // Gives the pane's lists what the settings file says of them.
  virtual void ReplayPaneSettings(int pane) = 0;
  // Gives everything the colours of the skin.
  virtual void ApplySkinChange() = 0;
  // Finds the pane's folder and loads its drive.
  virtual void LoadFolders(int pane) = 0;
  virtual void LoadPaneDrive(int pane) = 0;
};

class PaneSet {
 public:
  PaneSet(Workspace& workspace, FormLayout& layout, forms::FormHost& host,
          forms::Messenger& messenger, PaneHooks& hooks)
      : workspace_(workspace), layout_(layout), host_(host), messenger_(messenger), hooks_(hooks) {}

  // Opens the pane if it is closed and closes it if it is open. The last open pane stays.
  void ChangePanes(int pane);
  // Makes the pane's lists and gives them all they start with. A failure is told to the user; the
  // pane counts as set up all the same.
  void InitializePaneSet(int pane);
  // Gives the list of what was found, which is in no pane, all that it starts with.
  void SetUpFoundList(lister::ListerControl& list);

 private:
  bool ClosePane(int pane);  // false when the pane has to stay
  void OpenPane(int pane);
  void WarnOfManyPanes();
  void ShowPaneStates();
  void EqualizePanes();
  void SetUpLists(int pane);
  void SendSettings(lister::ListerControl& list) const;

  Workspace& workspace_;
  FormLayout& layout_;
  forms::FormHost& host_;
  forms::Messenger& messenger_;
  PaneHooks& hooks_;
};

}  // namespace tarnwell::workspace
