#include "lists/ShowPlaced.h"

namespace tarnwell::lists {

void ShowPlaced(const workspace::Workspace& workspace, lister::ListId list,
                const std::vector<platform::PlacedItem>& placed) {
  if (placed.empty() || workspace.Lists.Find(list) == nullptr) return;
  const lister::ListId files = lister::FileListOf(lister::PaneOf(list));
  workspace.Lists[files].PlaceCursor(
      placed, [&workspace, files] { return files == workspace.CurrentList; });
}

}  // namespace tarnwell::lists
