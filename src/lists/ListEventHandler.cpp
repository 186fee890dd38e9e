#include "lists/ListEventHandler.h"

#include <cstddef>
#include <exception>

#include "lister/list/ListInput.h"
#include "lists/ClearGraphics.h"
#include "workspace/Highlight.h"

namespace tarnwell::lists {

void MouseLocked(workspace::Workspace& workspace, bool locked) {
  workspace.ForEachList([locked](lister::ListerControl& list) { list.MouseLocked = locked; });
}

void ListEventHandler::FolderSelected(lister::ListId list) {
  const lister::ListerControl& folders = workspace_.Lists[list];
  if (folders.FolderListType() != 1) return;
  workspace_.PaneOfList(list).CurrentPath = folders.CurrentFolder();
  navigation_.UpdateChildPane(list);
}

// What was found in the file list beside it gives way to the folder.
void ListEventHandler::OpenFolderChosen(lister::ListId list) {
  navigation_.LeaveFound(list);
}

void ListEventHandler::DriveSelected(lister::ListId list) {
  workspace_.PaneOfList(list).CurrentPath = workspace_.Lists[list].DriveFolder();
  navigation_.UpdateChildPane(list);
}

void ListEventHandler::DragBegun(lister::ListId list, const lister::MouseEvent&) {
  constexpr int begin = 1;
  workspace_.CurrentList = list;
  workspace::HighlightActiveList(workspace_, false);
  workspace_.ResizeAction = workspace::DragStart;
  workspace_.Lists[list].Drag(begin);
}

void ListEventHandler::DragEnded(lister::ListId, const lister::MouseEvent&) {
  workspace_.ResizeAction.clear();
}

void ListEventHandler::NewFolderAt(lister::ListId, const std::string&, const std::string&) {
  requests_.CreateNewFolder();
}

void ListEventHandler::NewFolderAsked(lister::ListId) {
  requests_.CreateNewFolder();
}

void ListEventHandler::MouseReleased(lister::ListId list) {
  SetPointer(forms::MousePointer::Default);
  workspace_.SpaceHeld = false;
  ClearGraphics(workspace_, layout_, list);
}

void ListEventHandler::UpFolderKey(lister::ListId list, int, int) {
  navigation_.MoveFocusUpOneFolder(list);
}

void ListEventHandler::UpFolderButton(lister::ListId list) {
  navigation_.MoveFocusUpOneFolder(list);
}

void ListEventHandler::OpenChildFolder(lister::ListId list, const std::string& folder,
                                       const std::string& branch) {
  navigation_.OpenChildFolder(list, folder, branch);
}

void ListEventHandler::TitleColorAsked(lister::ListId list) {
  workspace::ColourTitleBar(workspace_, list);
}

void ListEventHandler::ListFocused(lister::ListId list) {
  workspace_.CurrentList = list;
  if (list != workspace_.EnteredList) workspace::HighlightActiveList(workspace_, true);
  workspace_.EnteredList = list;
}

void ListEventHandler::PointerAsked(lister::ListId, int pointer) {
  const auto asked = static_cast<forms::MousePointer>(pointer);
  switch (asked) {  // other numbers are no pointers of this program
    case forms::MousePointer::Default:
    case forms::MousePointer::Arrow:
    case forms::MousePointer::NorthSouth:
    case forms::MousePointer::WestEast:
    case forms::MousePointer::Hourglass:
      SetPointer(asked);
  }
}

void ListEventHandler::SetPointer(forms::MousePointer pointer) {
  workspace_.Form.MousePointer = pointer;
  workspace_.Form.Touch();
}

void ListEventHandler::ItemFocused(lister::ListId list, std::int16_t item) {
  workspace_.CurrentList = list;
  workspace_.ActiveItem = item;
  workspace::HighlightActiveList(workspace_, true);
}

void ListEventHandler::StatusMessage(lister::ListId, const std::string& text) {
  messenger_.Message(text, forms::MessageKind::Ok);
}

void ListEventHandler::HeadingsChanged(lister::ListId) {
  workspace::UpdateHeadingMenu(workspace_);
  workspace_.Form.Touch();
}

// The wheel acts on the active list, whichever list is under the pointer.
void ListEventHandler::WheelTurned(lister::ListId list, int& delta) {
  lister::ListerControl* const active = workspace_.Lists.Find(workspace_.ActiveList);
  if (active == nullptr) return;
  if (list != workspace_.ActiveList) active->TakeFocus("");
  active->WheelScroll(delta > 0);
}

void ListEventHandler::ListKeyDown(lister::ListId, std::int16_t& keyCode) {
  lister::ListerControl* const active = workspace_.Lists.Find(workspace_.ActiveList);
  if (active == nullptr) return;
  try {
    HandleListKey(workspace_, *active, keyCode);
  } catch (const std::exception&) {
    messenger_.Message("An error occurred while handline the key presses.", forms::MessageKind::Ok);
  }
}

void HandleListKey(workspace::Workspace& workspace, lister::ListerControl& list,
                   std::int16_t& keyCode) {
  switch (keyCode) {
    case lister::SpaceKeyCode:
      workspace.SpaceHeld = true;
      list.SpaceKey();
      break;
    case lister::UpKey:
    case lister::DownKey:
      list.ArrowKey(keyCode, workspace.SpaceHeld);
      break;
    case lister::F3Key:
      list.CalculateItemSize();
      break;
    default:
      break;
  }
}

void ListEventHandler::SpaceReleased(lister::ListId) {
  workspace_.SpaceHeld = false;
}

void ListEventHandler::MouseLockAsked(lister::ListId, bool& locked) {
  MouseLocked(workspace_, locked);
}

void ListEventHandler::CloseAsked(lister::ListId) {
  requests_.Close();
}

void ListEventHandler::CommandTextAsked(lister::ListId, const std::string& text) {
  workspace_.Form.cboCommand.Text = text;
  workspace_.Form.Touch();
}

void ListEventHandler::ItemsDropped(lister::ListId list, const lister::Drop& drop) {
  requests_.DropItems(list, drop);
}

void ListEventHandler::DropSourceSet(lister::ListId list) {
  workspace_.DragSourceList = list;
}

void ListEventHandler::RightClicked(lister::ListId list, const lister::RightClick& click) {
  workspace::HighlightActiveList(workspace_, false);
  const lister::ListerControl& control = workspace_.Lists[list];
  requests_.ShowContextMenu(click.X + static_cast<float>(control.Left),
                            click.Y + static_cast<float>(control.Top), click.Path,
                            click.UsePath ? click.Folder : "");
}

void ListEventHandler::BookmarkAsked(lister::ListId, std::int16_t& slot, std::string& path) {
  path = workspace_.Settings.Bookmarks.at(static_cast<std::size_t>(slot)).Path;
}

void ListEventHandler::EscapeKey() {
  lister::ListerControl* active = workspace_.Lists.Find(workspace_.ActiveList);
  if (active == nullptr) return;
  active->CancelRequested = true;
  if (lister::IsFileList(workspace_.ActiveList)) {
    // Which may have asked for a folder of a server that is silent.
    workspace_.Lists.Folders(lister::PaneOf(workspace_.ActiveList)).EndWait();
    return;
  }
  workspace_.Lists.Files(lister::PaneOf(workspace_.ActiveList)).CancelRequested = true;
}

}  // namespace tarnwell::lists
