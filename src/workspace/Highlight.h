// How the active list is shown.
#pragma once

#include "workspace/Workspace.h"

namespace tarnwell::workspace {

// The list becomes the one that takes keys and the wheel. Draws nothing.
void ColourTitleBar(Workspace& workspace, lister::ListId list);

// With `redraw` true: shows CurrentList and the title of its pane as active and all others as
// inactive, and brings the command line, the toolbar's enabled state and the ticks of the heading
// menu up to date. With false: nothing, so that a caller can skip the work.
void HighlightActiveList(Workspace& workspace, bool redraw);

// Ticks the entries of the heading menu from the headings that CurrentList shows.
void UpdateHeadingMenu(Workspace& workspace);

}  // namespace tarnwell::workspace
