// The program's own entries of the context menu, made from their tables.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ContextMenu.h"
#include "workspace/ProgramSettings.h"

namespace tarnwell::shellmenu {

struct OwnEntriesFor {
  const workspace::ProgramSettings& Settings;  // has the bookmarks
  std::string_view FirstPath;                  // of the items that the menu is for
  std::size_t Count = 0;                       // of the items
  bool IsDriveRoot = false;                    // they are a drive's root, or the open folder itself
  std::string Undo = {};  // "Undo: " and what; empty where nothing is to be undone from here
};

// From the top down.
std::vector<platform::ContextEntry> OwnEntries(const OwnEntriesFor& items);

}  // namespace tarnwell::shellmenu
