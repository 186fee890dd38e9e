// Takes the marks of the mouse off the lists once a button has come up in one of them.
#pragma once

#include "workspace/FormLayout.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

// No list keeps marks of a drag, and none but the given one marks of the pointer. The given list
// becomes the active one. The others are drawn anew only if it is another list than last time, and
// auto expand runs only if it is in another pane: clicks within a list cost nothing.
void ClearGraphics(workspace::Workspace& workspace, workspace::FormLayout& layout,
                   lister::ListId given);

}  // namespace tarnwell::lists
