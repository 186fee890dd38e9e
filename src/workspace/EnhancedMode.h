// The mode in which lists show colours and comments.
#pragma once

#include "workspace/Workspace.h"

namespace tarnwell::workspace {

// With `flag` false the menu entry follows the toolbar's button, with true the button follows the
// entry. Open panes' lists get the state of the entry, and are read again unless `noRefresh`.
// Nothing calls it at present: the command changes only its own button.
void SwitchMode(Workspace& workspace, bool flag, bool noRefresh);

// Entry points that do nothing.
void DoSwitchModes();
void ActivateMode();

}  // namespace tarnwell::workspace
