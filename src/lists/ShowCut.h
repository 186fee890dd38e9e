// Items that were cut are dimmed until they are pasted.
#pragma once

#include <string>

#include "workspace/Workspace.h"

namespace tarnwell::lists {

// The clipboard holds these items, a base::ItemList, to be moved; none ends that.
void ShowCut(workspace::Workspace& workspace, const std::string& items);

}  // namespace tarnwell::lists
