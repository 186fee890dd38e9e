// The events of the list that shows what was found, in a window of its own. Its rows lead to the
// active pane; commands act on it while they run, and nothing in the main window follows it.
#pragma once

#include <string>

#include "forms/Messenger.h"
#include "lister/list/ListerEvents.h"
#include "lists/ListEventHandler.h"
#include "lists/Navigation.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

class FoundListEvents : public lister::ListerEvents {
 public:
  // The place of the list in the main form, where its context menu is reckoned from, is for its
  // window to keep right.
  FoundListEvents(workspace::Workspace& workspace, Navigation& navigation,
                  forms::Messenger& messenger, ListRequests requests)
      : workspace_(workspace),
        navigation_(navigation),
        messenger_(messenger),
        requests_(std::move(requests)) {}

  void RightClicked(lister::ListId list, const lister::RightClick& click) override;
  void DragBegun(lister::ListId list, const lister::MouseEvent& event) override;
  void DragEnded(lister::ListId list, const lister::MouseEvent& event) override;
  void MouseReleased(lister::ListId list) override;
  void NewFolderAsked(lister::ListId list) override;
  // A folder opens in the active pane.
  void OpenChildFolder(lister::ListId list, const std::string& folder,
                       const std::string& branch) override;
  void StatusMessage(lister::ListId list, const std::string& text) override;
  void WheelTurned(lister::ListId list, int& delta) override;
  void ListKeyDown(lister::ListId list, std::int16_t& keyCode) override;
  void SpaceReleased(lister::ListId list) override;
  void MouseLockAsked(lister::ListId list, bool& locked) override;
  void CloseAsked(lister::ListId list) override;
  void CommandTextAsked(lister::ListId list, const std::string& text) override;
  void ItemsDropped(lister::ListId list, const lister::Drop& drop) override;
  void DropSourceSet(lister::ListId list) override;
  void BookmarkAsked(lister::ListId list, std::int16_t& slot, std::string& path) override;

 private:
  workspace::Workspace& workspace_;
  Navigation& navigation_;
  forms::Messenger& messenger_;
  ListRequests requests_;
};

}  // namespace tarnwell::lists
