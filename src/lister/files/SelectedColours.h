// Colour codes of what is selected in a file list.
#pragma once

#include <vector>

#include "lister/files/FileListState.h"
#include "lister/rows/ItemColours.h"

namespace tarnwell::lister {

// Keeps the colour with each item selected, Default takes it away, and shows it in the rows. Lets
// messages through; Escape ends it. Items that do not take it are told by one StatusMessage. Gives
// those that have another colour now.
std::vector<ColouredItem> KeepSelectedColours(FileListState& files, ItemColour colour);

}  // namespace tarnwell::lister
