// Notes the events of the lists on their way to the form. Texts, paths and items stay out. An event
// that is not here does not arrive while messages are logged.
#pragma once

#include <string>

#include "lister/list/ListerEvents.h"
#include "tools/MessageLog.h"

namespace tarnwell::tools {

class LoggedListEvents : public lister::ListerEvents {
 public:
  LoggedListEvents(lister::ListerEvents& next, MessageLog& log) : next_(next), log_(log) {}

  void FolderSelected(lister::ListId list) override {
    Note(list, "FolderSelected");
    next_.FolderSelected(list);
  }
  void OpenFolderChosen(lister::ListId list) override {
    Note(list, "OpenFolderChosen");
    next_.OpenFolderChosen(list);
  }
  void DriveSelected(lister::ListId list) override {
    Note(list, "DriveSelected");
    next_.DriveSelected(list);
  }
  void DragBegun(lister::ListId list, const lister::MouseEvent& event) override {
    Note(list, "DragBegun");
    next_.DragBegun(list, event);
  }
  void RightClicked(lister::ListId list, const lister::RightClick& click) override {
    Note(list, "RightClicked");
    next_.RightClicked(list, click);
  }
  void DragEnded(lister::ListId list, const lister::MouseEvent& event) override {
    Note(list, "DragEnded");
    next_.DragEnded(list, event);
  }
  void DragMoved(lister::ListId list, const lister::MouseEvent& event) override {
    Note(list, "DragMoved", Rate::Often);
    next_.DragMoved(list, event);
  }
  void MouseReleased(lister::ListId list) override {
    Note(list, "MouseReleased");
    next_.MouseReleased(list);
  }
  void NewFolderAt(lister::ListId list, const std::string& folder,
                   const std::string& name) override {
    Note(list, "NewFolderAt");
    next_.NewFolderAt(list, folder, name);
  }
  void NewFolderAsked(lister::ListId list) override {
    Note(list, "NewFolderAsked");
    next_.NewFolderAsked(list);
  }
  void UpFolderKey(lister::ListId list, int keyCode, int shift) override {
    Note(list, "UpFolderKey");
    next_.UpFolderKey(list, keyCode, shift);
  }
  void OpenChildFolder(lister::ListId list, const std::string& folder,
                       const std::string& branch) override {
    Note(list, "OpenChildFolder");
    next_.OpenChildFolder(list, folder, branch);
  }
  void UpFolderButton(lister::ListId list) override {
    Note(list, "UpFolderButton");
    next_.UpFolderButton(list);
  }
  void TitleColorAsked(lister::ListId list) override {
    Note(list, "TitleColorAsked", Rate::Often);
    next_.TitleColorAsked(list);
  }
  void ListFocused(lister::ListId list) override {
    Note(list, "ListFocused");
    next_.ListFocused(list);
  }
  void PointerAsked(lister::ListId list, int pointer) override {
    Note(list, "PointerAsked " + std::to_string(pointer), Rate::Often);
    next_.PointerAsked(list, pointer);
  }
  void ItemFocused(lister::ListId list, std::int16_t item) override {
    Note(list, "ItemFocused");
    next_.ItemFocused(list, item);
  }
  void StatusMessage(lister::ListId list, const std::string& text) override {
    Note(list, "StatusMessage", Rate::Often);
    next_.StatusMessage(list, text);
  }
  void HeadingsChanged(lister::ListId list) override {
    Note(list, "HeadingsChanged");
    next_.HeadingsChanged(list);
  }
  void WheelTurned(lister::ListId list, int& delta) override {
    Note(list, "WheelTurned");
    next_.WheelTurned(list, delta);
  }
  void ListKeyDown(lister::ListId list, std::int16_t& keyCode) override {
    Note(list, "ListKeyDown");
    next_.ListKeyDown(list, keyCode);
  }
  void SpaceReleased(lister::ListId list) override {
    Note(list, "SpaceReleased");
    next_.SpaceReleased(list);
  }
  void MouseLockAsked(lister::ListId list, bool& locked) override {
    Note(list, "MouseLockAsked", Rate::Often);
    next_.MouseLockAsked(list, locked);
  }
  void CloseAsked(lister::ListId list) override {
    Note(list, "CloseAsked");
    next_.CloseAsked(list);
  }
  void CommandTextAsked(lister::ListId list, const std::string& text) override {
    Note(list, "CommandTextAsked");
    next_.CommandTextAsked(list, text);
  }
  void ItemsDropped(lister::ListId list, const lister::Drop& drop) override {
    Note(list, "ItemsDropped");
    next_.ItemsDropped(list, drop);
  }
  void DropSourceSet(lister::ListId list) override {
    Note(list, "DropSourceSet");
    next_.DropSourceSet(list);
  }
  void BookmarkAsked(lister::ListId list, std::int16_t& slot, std::string& path) override {
    Note(list, "BookmarkAsked");
    next_.BookmarkAsked(list, slot, path);
  }

 private:
  void Note(lister::ListId list, const std::string& event, Rate rate = Rate::Each) {
    const char* const kind = lister::IsFileList(list) ? "Files" : "Folders";
    const std::string pane =
        lister::HasPane(list) ? std::to_string(lister::PaneOf(list) + 1) : "found";
    log_.Note("Master", std::string(kind) + " of pane " + pane, event, rate);
  }

  lister::ListerEvents& next_;
  MessageLog& log_;
};

}  // namespace tarnwell::tools
