// The main form's side of the events of the lists: keeps right which list is active and passes
// requests on to the parts that do the work.
#pragma once

#include <functional>
#include <string>

#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "lister/ListerEvents.h"
#include "lists/Navigation.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

class ListEventHandler : public lister::ListerEvents {
 public:
  // `close` unloads the main form.
  ListEventHandler(workspace::Workspace& workspace, Navigation& navigation, forms::FormHost& host,
                   forms::Messenger& messenger, std::function<void()> close)
      : workspace_(workspace),
        navigation_(navigation),
        host_(host),
        messenger_(messenger),
        close_(std::move(close)) {}

  void FolderSelected(lister::ListId list) override;
  void DriveSelected(lister::ListId list) override;
  void MouseReleased(lister::ListId list) override;
  void UpFolderKey(lister::ListId list, int keyCode, int shift) override;
  void OpenChildFolder(lister::ListId list, const std::string& folder,
                       const std::string& branch) override;
  void UpFolderButton(lister::ListId list) override;
  void TitleColorAsked(lister::ListId list) override;
  void ListFocused(lister::ListId list) override;
  void ItemFocused(lister::ListId list, std::int16_t item) override;
  void StatusMessage(lister::ListId list, const std::string& text) override;
  void HeadingsChanged(lister::ListId list) override;
  void CloseAsked(lister::ListId list) override;

  // Escape at the form: the active list stops what it reads; a folder list and the file list of its
  // pane both do.
  void EscapeKey();

 private:
  workspace::Workspace& workspace_;
  Navigation& navigation_;
  forms::FormHost& host_;
  forms::Messenger& messenger_;
  std::function<void()> close_;
};

}  // namespace tarnwell::lists
