// The main form's side of the events of the lists: keeps right which list is active and passes
// requests on to the parts that do the work.
#pragma once

#include <functional>
#include <string>

#include "forms/Messenger.h"
#include "lister/list/ListerEvents.h"
#include "lists/Navigation.h"
#include "workspace/FormLayout.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

// What the handler passes on to parts of the program that it does not know.
struct ListRequests {
  std::function<void()> Close;            // unloads the main form
  std::function<void()> CreateNewFolder;  // in the current list, as if asked for by key
  // The context menu at a place in the form, in twips. `clicked` is the path of the item that was
  // clicked; the menu is for `path`, or if that is empty for what is selected.
  std::function<void(float x, float y, const std::string& clicked, const std::string& path)>
      ShowContextMenu = {};
  std::function<void(lister::ListId list, const lister::Drop& drop)> DropItems = {};
};

// Lets the mouse start nothing in any list, or lets it again.
void MouseLocked(workspace::Workspace& workspace, bool locked);
// What a key of ListKeyDown does in the list.
void HandleListKey(workspace::Workspace& workspace, lister::ListerControl& list,
                   std::int16_t& keyCode);

class ListEventHandler : public lister::ListerEvents {
 public:
  ListEventHandler(workspace::Workspace& workspace, workspace::FormLayout& layout,
                   Navigation& navigation, forms::Messenger& messenger, ListRequests requests)
      : workspace_(workspace),
        layout_(layout),
        navigation_(navigation),
        messenger_(messenger),
        requests_(std::move(requests)) {}

  void FolderSelected(lister::ListId list) override;
  void OpenFolderChosen(lister::ListId list) override;
  void DriveSelected(lister::ListId list) override;
  void RightClicked(lister::ListId list, const lister::RightClick& click) override;
  void DragBegun(lister::ListId list, const lister::MouseEvent& event) override;
  void DragEnded(lister::ListId list, const lister::MouseEvent& event) override;
  void MouseReleased(lister::ListId list) override;
  void NewFolderAt(lister::ListId list, const std::string& folder,
                   const std::string& name) override;
  void NewFolderAsked(lister::ListId list) override;
  void UpFolderKey(lister::ListId list, int keyCode, int shift) override;
  void OpenChildFolder(lister::ListId list, const std::string& folder,
                       const std::string& branch) override;
  void UpFolderButton(lister::ListId list) override;
  void TitleColorAsked(lister::ListId list) override;
  void ListFocused(lister::ListId list) override;
  void PointerAsked(lister::ListId list, int pointer) override;
  void ItemFocused(lister::ListId list, std::int16_t item) override;
  void StatusMessage(lister::ListId list, const std::string& text) override;
  void HeadingsChanged(lister::ListId list) override;
  void WheelTurned(lister::ListId list, int& delta) override;
  void ListKeyDown(lister::ListId list, std::int16_t& keyCode) override;
  void SpaceReleased(lister::ListId list) override;
  void MouseLockAsked(lister::ListId list, bool& locked) override;
  void CloseAsked(lister::ListId list) override;
  void CommandTextAsked(lister::ListId list, const std::string& text) override;
  void ItemsDropped(lister::ListId list, const lister::Drop& drop) override;
  void DropSourceSet(lister::ListId list) override;
  // Throws std::out_of_range for a slot that there is not.
  void BookmarkAsked(lister::ListId list, std::int16_t& slot, std::string& path) override;

  // Escape at the form: the active list stops what it reads; a folder list and the file list of its
  // pane both do. Of an active file list the folder list stops waiting for another machine, too.
  void EscapeKey();

 private:
  void SetPointer(forms::MousePointer pointer);

  workspace::Workspace& workspace_;
  workspace::FormLayout& layout_;
  Navigation& navigation_;
  forms::Messenger& messenger_;
  ListRequests requests_;
};

}  // namespace tarnwell::lists
