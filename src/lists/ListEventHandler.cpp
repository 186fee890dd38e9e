#include "lists/ListEventHandler.h"

#include <cstddef>

#include "workspace/Highlight.h"

namespace tarnwell::lists {

void ListEventHandler::FolderSelected(lister::ListId list) {
  const lister::ListerControl& folders = workspace_.Lists[list];
  if (folders.FolderListType() != 1) return;
  workspace_.Panes.at(static_cast<std::size_t>(list)).CurrentPath = folders.CurrentFolder();
  navigation_.UpdateChildPane(list);
}

void ListEventHandler::DriveSelected(lister::ListId list) {
  const auto pane = static_cast<std::size_t>(lister::PaneOf(list));
  workspace_.Panes.at(pane).CurrentPath = workspace_.Lists[list].DriveFolder();
  navigation_.UpdateChildPane(list);
}

void ListEventHandler::MouseReleased(lister::ListId list) {
  host_.SetScreenPointer(forms::MousePointer::Default);
  workspace::ColourTitleBar(workspace_, list);
}

void ListEventHandler::UpFolderKey(lister::ListId list, int, int) {
  navigation_.MoveFocusUpOneFolder(list);
}

void ListEventHandler::UpFolderButton(lister::ListId list) {
  navigation_.MoveFocusUpOneFolder(list);
}

void ListEventHandler::OpenChildFolder(lister::ListId list, const std::string& folder,
                                       const std::string& branch) {
  lister::ListerControl& folders = workspace_.Lists.Folders(lister::PaneOf(list));
  folders.ExpandFolder(0, branch, 1);
  folders.OpenFolder(0, folder);
}

void ListEventHandler::TitleColorAsked(lister::ListId list) {
  workspace::ColourTitleBar(workspace_, list);
}

void ListEventHandler::ListFocused(lister::ListId list) {
  workspace_.CurrentList = list;
  if (list != workspace_.EnteredList) workspace::HighlightActiveList(workspace_, true);
  workspace_.EnteredList = list;
}

void ListEventHandler::ItemFocused(lister::ListId list, std::int16_t) {
  workspace_.CurrentList = list;
  workspace::HighlightActiveList(workspace_, true);
}

void ListEventHandler::StatusMessage(lister::ListId, const std::string& text) {
  messenger_.Message(text, forms::MessageKind::Ok);
}

void ListEventHandler::HeadingsChanged(lister::ListId) {
  workspace::UpdateHeadingMenu(workspace_);
  workspace_.Form.Touch();
}

void ListEventHandler::CloseAsked(lister::ListId) {
  close_();
}

void ListEventHandler::EscapeKey() {
  lister::ListerControl* active = workspace_.Lists.Find(workspace_.ActiveList);
  if (active == nullptr) return;
  active->CancelRequested = true;
  if (lister::IsFileList(workspace_.ActiveList)) return;
  workspace_.Lists.Files(lister::PaneOf(workspace_.ActiveList)).CancelRequested = true;
}

}  // namespace tarnwell::lists
