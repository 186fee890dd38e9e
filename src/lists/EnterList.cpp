#include "lists/EnterList.h"

#include "lists/ClearGraphics.h"
#include "workspace/Highlight.h"

namespace tarnwell::lists {
namespace {

// The list, or the other one of its pane if that alone has room.
lister::ListId WithRoom(const workspace::ListSet& lists, lister::ListId list) {
  const int pane = lister::PaneOf(list);
  const lister::ListId other =
      lister::IsFileList(list) ? lister::FolderListOf(pane) : lister::FileListOf(pane);
  return !lists[list].Visible && lists[other].Visible ? other : list;
}

}  // namespace

void EnterList(workspace::Workspace& workspace, workspace::FormLayout& layout,
               lister::ListId list) {
  if (workspace.Lists.Find(list) == nullptr) return;
  ClearGraphics(workspace, layout, list);  // with auto expand the pane may have grown by it
  list = WithRoom(workspace.Lists, list);
  workspace.ActiveList = workspace.CurrentList = list;
  workspace::HighlightActiveList(workspace, true);
  lister::ListerControl& control = workspace.Lists[list];
  if (!control.Visible) {
    workspace.Form.ActiveControl = workspace::KeyboardFocus::Form;
    workspace.Form.Touch();
    return;
  }
  // What an arrangement has just placed is shown first, since nothing else takes the keyboard.
  if (workspace.Form.ActiveControl == workspace::KeyboardFocus::Form) workspace.Form.Refresh();
  control.TakeFocus();
}

}  // namespace tarnwell::lists
