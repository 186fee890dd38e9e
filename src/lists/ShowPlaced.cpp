#include "lists/ShowPlaced.h"

namespace tarnwell::lists {
namespace {

lister::ListId FilesBeside(lister::ListId list) {
  return lister::IsFileList(list) ? list : lister::FileListOf(lister::PaneOf(list));
}

}  // namespace

void ShowPlaced(const workspace::Workspace& workspace, lister::ListId list,
                const std::vector<platform::PlacedItem>& placed) {
  if (placed.empty() || workspace.Lists.Find(list) == nullptr) return;
  const lister::ListId files = FilesBeside(list);
  workspace.Lists[files].PlaceCursor(
      placed, [&workspace, files] { return files == workspace.CurrentList; });
}

CursorMark MarkCursor(const workspace::Workspace& workspace, lister::ListId list) {
  if (workspace.Lists.Find(list) == nullptr) return {};
  const lister::ListId files = FilesBeside(list);
  const lister::ListerControl& control = workspace.Lists[files];
  return {.Files = files,
          .Folder = control.CurrentFolder(),
          .Item = control.Rows().PathOf(control.Rows().CurrentRow())};
}

bool StandsAt(const workspace::Workspace& workspace, const CursorMark& mark) {
  // A cursor that moves empties the command line.
  if (workspace.Form.ActiveControl == workspace::KeyboardFocus::CommandLine) return false;
  const lister::ListerControl* const files = workspace.Lists.Find(mark.Files);
  if (files != nullptr && files->IsInAction()) return false;
  const CursorMark now = MarkCursor(workspace, mark.Files);
  return now.Folder == mark.Folder && now.Item == mark.Item;
}

}  // namespace tarnwell::lists
