// After an operation the cursor stands on what came of it.
#pragma once

#include <vector>

#include "platform/FileOperation.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

// In the list, or in the file list beside it where that is a tree: a tree's cursor opens folders.
// See ListerControl::PlaceCursor.
void ShowPlaced(const workspace::Workspace& workspace, lister::ListId list,
                const std::vector<platform::PlacedItem>& placed);

}  // namespace tarnwell::lists
