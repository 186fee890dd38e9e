// The keyboard goes from list to list.
#pragma once

#include "workspace/FormLayout.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

// The list of an open pane becomes the active and the current one, as a click in it makes it, and
// gets the keyboard. Where it has no room to be shown, the other list of its pane does; where
// neither has, keys go to the list by way of the form. A list that is not there does nothing.
void EnterList(workspace::Workspace& workspace, workspace::FormLayout& layout, lister::ListId list);

}  // namespace tarnwell::lists
