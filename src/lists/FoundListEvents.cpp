#include "lists/FoundListEvents.h"

#include <cstddef>

#include "workspace/CurrentListScope.h"

namespace tarnwell::lists {

void FoundListEvents::RightClicked(lister::ListId list, const lister::RightClick& click) {
  const workspace::CurrentListScope scope(workspace_, list);
  const lister::ListerControl& control = workspace_.Lists[list];
  requests_.ShowContextMenu(click.X + static_cast<float>(control.Left),
                            click.Y + static_cast<float>(control.Top), click.Path,
                            click.UsePath ? click.Folder : "");
}

void FoundListEvents::DragBegun(lister::ListId list, const lister::MouseEvent&) {
  constexpr int begin = 1;
  workspace_.Lists[list].Drag(begin);
}

void FoundListEvents::DragEnded(lister::ListId, const lister::MouseEvent&) {
  workspace_.ResizeAction.clear();
}

void FoundListEvents::MouseReleased(lister::ListId list) {
  workspace_.SpaceHeld = false;
  workspace_.Lists[list].SetDragGraphicsOn(false);
}

void FoundListEvents::NewFolderAsked(lister::ListId list) {
  const workspace::CurrentListScope scope(workspace_, list);
  requests_.CreateNewFolder();
}

void FoundListEvents::OpenChildFolder(lister::ListId list, const std::string& folder,
                                      const std::string& branch) {
  if (workspace_.Lists.Find(workspace_.ActiveList) == nullptr) return;
  if (workspace_.ActiveList == list) return;
  navigation_.OpenChildFolder(workspace_.ActiveList, folder, branch);
}

void FoundListEvents::StatusMessage(lister::ListId, const std::string& text) {
  messenger_.Message(text, forms::MessageKind::Ok);
}

void FoundListEvents::WheelTurned(lister::ListId list, int& delta) {
  workspace_.Lists[list].WheelScroll(delta > 0);
}

void FoundListEvents::ListKeyDown(lister::ListId list, std::int16_t& keyCode) {
  HandleListKey(workspace_, workspace_.Lists[list], keyCode);
}

void FoundListEvents::SpaceReleased(lister::ListId) {
  workspace_.SpaceHeld = false;
}

void FoundListEvents::MouseLockAsked(lister::ListId, bool& locked) {
  MouseLocked(workspace_, locked);
}

void FoundListEvents::CloseAsked(lister::ListId) {
  requests_.Close();
}

void FoundListEvents::CommandTextAsked(lister::ListId, const std::string& text) {
  workspace_.Form.cboCommand.Text = text;
  workspace_.Form.Touch();
}

void FoundListEvents::ItemsDropped(lister::ListId list, const lister::Drop& drop) {
  requests_.DropItems(list, drop);
}

void FoundListEvents::DropSourceSet(lister::ListId list) {
  workspace_.DragSourceList = list;
}

void FoundListEvents::BookmarkAsked(lister::ListId, std::int16_t& slot, std::string& path) {
  path = workspace_.Settings.Bookmarks.at(static_cast<std::size_t>(slot)).Path;
}

}  // namespace tarnwell::lists
