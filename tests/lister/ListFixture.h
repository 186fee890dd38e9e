// One list over the platform in memory, with a record of what it tells.
#pragma once

#include "ShadowView.h"
#include "fakes/FakePlatform.h"
#include "lister/ListerUser.h"
#include "lister/list/ListColumns.h"

namespace tarnwell::lister {

struct EventRecord : ListerEvents {
  std::vector<std::string> Told;
  std::function<void()> OnFolderSelected;
  ListerControl* Answers = nullptr;  // gets what the form answers to mouse and keys
  bool SpaceHeld = false;
  std::string Bookmark;  // in every slot
  RightClick Clicked;    // the last
  Drop Dropped;          // the last

  void FolderSelected(ListId list) override {
    Tell("FolderSelected", list);
    if (OnFolderSelected) OnFolderSelected();
  }
  void DriveSelected(ListId list) override { Tell("DriveSelected", list); }
  void OpenChildFolder(ListId, const std::string& folder, const std::string& branch) override {
    Tell("OpenChildFolder", folder + " in " + branch);
  }
  void ItemFocused(ListId, std::int16_t item) override { Tell("ItemFocused", item); }
  void ListFocused(ListId) override { Tell("ListFocused"); }
  void TitleColorAsked(ListId) override { Tell("TitleColorAsked"); }
  void MouseReleased(ListId) override { Tell("MouseReleased"); }
  void DragBegun(ListId, const MouseEvent&) override {
    Tell("DragBegun");
    if (Answers != nullptr) Answers->Drag(1);
  }
  void DragMoved(ListId, const MouseEvent&) override { Tell("DragMoved"); }
  void DragEnded(ListId, const MouseEvent&) override { Tell("DragEnded"); }
  void WheelTurned(ListId, int& delta) override { Tell("WheelTurned", delta); }
  void RightClicked(ListId, const RightClick& click) override {
    Tell("RightClicked", click.Path);
    Clicked = click;
  }
  void MouseLockAsked(ListId, bool& locked) override {
    Tell(locked ? "Locked" : "Unlocked");
    if (Answers != nullptr) Answers->MouseLocked = locked;
  }
  void ListKeyDown(ListId, std::int16_t& keyCode) override {
    Tell("ListKeyDown", keyCode);
    if (Answers == nullptr) return;
    if (keyCode != 32) return Answers->ArrowKey(keyCode, SpaceHeld);
    SpaceHeld = true;
    Answers->SpaceKey();
  }
  void SpaceReleased(ListId) override { SpaceHeld = false; }
  void NewFolderAt(ListId, const std::string& folder, const std::string& name) override {
    Tell("NewFolderAt", folder + name);
  }
  void NewFolderAsked(ListId) override { Tell("NewFolderAsked"); }
  void UpFolderKey(ListId, int keyCode, int) override { Tell("UpFolderKey", keyCode); }
  void CloseAsked(ListId) override { Tell("CloseAsked"); }
  void CommandTextAsked(ListId, const std::string& text) override {
    Tell("CommandTextAsked", text);
  }
  void StatusMessage(ListId, const std::string& text) override { Tell("StatusMessage", text); }
  void BookmarkAsked(ListId, std::int16_t& slot, std::string& path) override {
    Tell("BookmarkAsked", slot);
    path = Bookmark;
  }
  void DropSourceSet(ListId list) override { Tell("DropSourceSet", list); }
  void UpFolderButton(ListId) override { Tell("UpFolderButton"); }
  void ItemsDropped(ListId, const Drop& drop) override {
    Tell("ItemsDropped");
    Dropped = drop;
  }
  void Tell(const std::string& what) { Told.push_back(what); }
  void Tell(const std::string& what, const std::string& of) { Told.push_back(what + " " + of); }
  void Tell(const std::string& what, int number) { Tell(what, std::to_string(number)); }
  // What was told since the last call.
  std::vector<std::string> Take() { return std::exchange(Told, {}); }
  // Of that, what begins so.
  std::vector<std::string> Take(std::string_view start) {
    std::erase_if(Told, [&](const std::string& told) { return !told.starts_with(start); });
    return Take();
  }
};

class ListFixture : public testing::Test {
 protected:
  explicit ListFixture(ListId id) : List(id, Platform.Services(), Events), View(List) {}
  ~ListFixture() override { View.Check(); }

  std::vector<std::string> Names(RowId parent = RootRow) const {
    std::vector<std::string> names;
    for (int at = 0; at < Rows.ChildCount(parent); ++at) {
      names.push_back(Rows.CellText(Rows.Child(parent, at), HeadingId::Name));
    }
    return names;
  }
  RowId Row(RowId parent, const std::string& name) const {
    for (int at = 0; at < Rows.ChildCount(parent); ++at) {
      const RowId row = Rows.Child(parent, at);
      if (Rows.CellText(row, HeadingId::Name) == name) return row;
    }
    return NoRow;
  }
  std::vector<std::string> Expanded() const {
    std::vector<std::string> paths;
    for (int at = 0; at <= List.ExpandedCount(); ++at) paths.push_back(List.ExpandedFolder(at));
    return paths;
  }
  void Load(std::string folder = "C:\\box\\") { List.LoadFolderContents(folder, true); }
  void LoadDrive(std::string drive = "") { List.LoadDrive(drive, false); }
  // Runs the message at the pump of that number from now on, counted from 1; messages that did not
  // have their turn before are dropped. Gives a flag that tells whether it ran.
  std::shared_ptr<bool> PostAt(int pump, const std::function<void()>& message) {
    auto ran = std::make_shared<bool>(false);
    Platform.Pump.Drop();
    while (--pump > 0) Platform.Pump.Post([] {});
    Platform.Pump.Post([=] { *ran = true, message(); });
    return ran;
  }
  // Asks all that can be asked, and does all that can be done, with rows that are none.
  void CheckNoRow(RowId beyond) {
    for (const RowId row : {NoRow, RootRow, beyond}) {
      EXPECT_EQ(Rows.PathOf(row) + Rows.CellText(row, HeadingId::Path), "");
      EXPECT_EQ(Rows.PositionOf(row), -1);
      EXPECT_FALSE(Rows.StateOf(row).HasChildren);
      Rows.MoveCurrent(row);
      Rows.Activate(row);
      Rows.Expand(row);
      Rows.Collapse(row);
    }
    for (const int position : {-1, 99}) EXPECT_EQ(Rows.Child(RootRow, position), NoRow);
    EXPECT_EQ(Rows.ChildCount(beyond), 0);
    EXPECT_TRUE(Events.Take().empty());
  }

  fakes::FakePlatform Platform;
  EventRecord Events;
  ListerControl List;
  ListRows& Rows = List.Rows();
  ListInput& Input = List.Input();
  ShadowView View;
};

using Texts = std::vector<std::string>;

}  // namespace tarnwell::lister
