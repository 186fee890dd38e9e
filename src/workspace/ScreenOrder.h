// The panes as they stand on the screen.
#pragma once

#include <vector>

#include "workspace/PaneRecord.h"

namespace tarnwell::workspace {

// The open panes other than that one: first the one that follows it to the right, or below, and so
// on, and round from the last to the first. All of them if that one is closed.
std::vector<int> PanesAfter(const PaneRecords& panes, int pane);

}  // namespace tarnwell::workspace
