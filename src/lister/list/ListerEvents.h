// What a list tells the form that holds it.
//
// Every event carries the list's id first and comes on the user interface thread, some of them
// while a call into a list is still running, since lists let messages through during long reads. A
// listener that has no use for an event inherits a handler that does nothing.
#pragma once

#include <cstdint>
#include <string>

#include "lister/list/ListId.h"

namespace tarnwell::lister {

// Buttons: 1 main, 2 other, 4 middle. Shift: 1 Shift, 2 Ctrl, 4 Alt. Place in twips in the list.
struct MouseEvent {
  int Button = 0;
  int Shift = 0;
  float X = 0;
  float Y = 0;
};

// A right click: its place in twips in the list, and what was clicked.
struct RightClick {
  float X = 0;
  float Y = 0;
  // The folder that holds the item; with UsePath what the menu is for, whatever is selected: a
  // folder's path, with a separator at its end if it is the open folder as seen from within.
  std::string Folder;
  std::string Name;
  std::string Path;  // full path of the item; empty for empty space
  bool UsePath = false;
};

// Items: a base::ItemList. Action: platform::CopyWord or MoveWord, or empty when the user is to be
// asked.
struct Drop {
  std::string Items = {};
  std::string SourceText = {};
  std::string Action = {};
  ListId Source = NoList;  // the list that the drag began in, if it was one of this program
  int Foreign = 0;         // what else was dragged and is no file of this computer
};

class ListerEvents {
 public:
  virtual ~ListerEvents() = default;

  virtual void FolderSelected(ListId) {}  // a folder list opened another folder
  // The user chose the folder that a folder list has open already.
  virtual void OpenFolderChosen(ListId) {}
  virtual void DriveSelected(ListId) {}  // the user chose another drive
  virtual void DragBegun(ListId, const MouseEvent&) {}
  virtual void RightClicked(ListId, const RightClick&) {}
  virtual void DragEnded(ListId, const MouseEvent&) {}
  virtual void DragMoved(ListId, const MouseEvent&) {}
  virtual void MouseReleased(ListId) {}
  virtual void NewFolderAt(ListId, const std::string& /*folder*/, const std::string& /*name*/) {}
  virtual void NewFolderAsked(ListId) {}
  virtual void UpFolderKey(ListId, int /*keyCode*/, int /*shift*/) {}
  // A file list wants its folder list to enter a folder; `branch` is the folder that holds it.
  virtual void OpenChildFolder(ListId, const std::string& /*folder*/,
                               const std::string& /*branch*/) {}
  virtual void UpFolderButton(ListId) {}
  virtual void TitleColorAsked(ListId) {}
  virtual void ListFocused(ListId) {}
  virtual void PointerAsked(ListId, int /*pointer*/) {}
  virtual void ItemFocused(ListId, std::int16_t /*item*/) {}
  virtual void StatusMessage(ListId, const std::string& /*text*/) {}
  virtual void HeadingsChanged(ListId) {}
  virtual void WheelTurned(ListId, int& /*delta*/) {}  // above 0 is up
  virtual void ListKeyDown(ListId, std::int16_t& /*keyCode*/) {}
  virtual void SpaceReleased(ListId) {}
  virtual void MouseLockAsked(ListId, bool& /*locked*/) {}
  virtual void CloseAsked(ListId) {}
  virtual void CommandTextAsked(ListId, const std::string& /*text*/) {}
  virtual void ItemsDropped(ListId, const Drop&) {}
  virtual void DropSourceSet(ListId) {}  // the list that a drag began in; before ItemsDropped
  // The list's menu needs the path of a bookmark slot, 0 to 9.
  virtual void BookmarkAsked(ListId, std::int16_t& /*slot*/, std::string& /*path*/) {}
};

}  // namespace tarnwell::lister
