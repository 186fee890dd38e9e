// One list over the platform in memory, with a record of what it tells.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "ShadowView.h"
#include "fakes/FakePlatform.h"
#include "lister/ListerControl.h"

namespace tarnwell::lister {

struct EventRecord : ListerEvents {
  std::vector<std::string> Told;
  std::function<void()> OnFolderSelected;

  void FolderSelected(ListId list) override {
    Told.push_back("FolderSelected " + std::to_string(list));
    if (OnFolderSelected) OnFolderSelected();
  }
  void DriveSelected(ListId list) override {
    Told.push_back("DriveSelected " + std::to_string(list));
  }
  void OpenChildFolder(ListId, const std::string& folder, const std::string& branch) override {
    Told.push_back("OpenChildFolder " + folder + " in " + branch);
  }
  void ItemFocused(ListId, std::int16_t item) override {
    Told.push_back("ItemFocused " + std::to_string(item));
  }
  void StatusMessage(ListId, const std::string& text) override {
    Told.push_back("StatusMessage " + text);
  }
  // What was told since the last call.
  std::vector<std::string> Take() { return std::exchange(Told, {}); }
};

class ListFixture : public testing::Test {
 protected:
  explicit ListFixture(ListId id, const base::PathSyntax& syntax = base::PathSyntax::Windows())
      : Platform(syntax), List(id, Platform.Services(), Events), View(List) {}
  ~ListFixture() override { View.Check(); }

  std::vector<std::string> Names(RowId parent = RootRow) const {
    std::vector<std::string> names;
    for (int at = 0; at < List.ChildCount(parent); ++at) {
      names.push_back(List.CellText(List.Child(parent, at), HeadingId::Name));
    }
    return names;
  }
  RowId Row(RowId parent, const std::string& name) const {
    for (int at = 0; at < List.ChildCount(parent); ++at) {
      const RowId row = List.Child(parent, at);
      if (List.CellText(row, HeadingId::Name) == name) return row;
    }
    return NoRow;
  }
  std::vector<std::string> Expanded() const {
    std::vector<std::string> paths;
    for (int at = 0; at <= List.ExpandedCount(); ++at) paths.push_back(List.ExpandedFolder(at));
    return paths;
  }

  fakes::FakePlatform Platform;
  EventRecord Events;
  ListerControl List;
  ShadowView View;
};

using Texts = std::vector<std::string>;

}  // namespace tarnwell::lister
