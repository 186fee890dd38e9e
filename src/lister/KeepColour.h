// Colour codes of items, kept with the items themselves.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "lister/files/FileListState.h"
#include "lister/rows/ItemColours.h"

namespace tarnwell::lister {

// Keeps the colour with each item selected, Default takes it away, and shows it in the rows. Lets
// messages through; Escape ends it. Items that do not take it are told by one StatusMessage.
void KeepColour(FileListState& files, ItemColour colour);
// With the one item of that path.
void KeepColour(ListState& list, const std::string& path, ItemColour colour);

}  // namespace tarnwell::lister
