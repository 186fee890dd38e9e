// After an operation the cursor stands on what came of it.
#pragma once

#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

// In the list, or in the file list beside it where that is a tree: a tree's cursor opens folders.
// See ListerControl::PlaceCursor.
void ShowPlaced(const workspace::Workspace& workspace, lister::ListId list,
                const std::vector<platform::PlacedItem>& placed);

// Where the cursor of that same file list stands as an operation begins.
struct CursorMark {
  lister::ListId Files = lister::NoList;
  std::string Folder;
  std::string Item;  // full path; empty where there is none
};

CursorMark MarkCursor(const workspace::Workspace& workspace, lister::ListId list);
// Whether the list still shows that folder, with its cursor there, has no menu up, and nobody types
// a command: otherwise the user has gone on, and nothing is to be moved under their fingers. To be
// asked before lists are refreshed.
bool StandsAt(const workspace::Workspace& workspace, const CursorMark& mark);

}  // namespace tarnwell::lists
