// The commands of the menus that act on the current list, or on all lists.
#pragma once

#include <string_view>

#include "workspace/Workspace.h"

namespace tarnwell::lists {

class ListCommands {
 public:
  explicit ListCommands(workspace::Workspace& workspace) : workspace_(workspace) {}

  // Of the current list; the words are those of ListerControl.
  void Sort(std::string_view word);
  void MoveHeading(std::string_view word);
  void ChooseHeading(std::string_view word);
  void TurnSort();
  void ToggleHeading(std::string_view menuName);
  void CalculateFolderSizes();

  // Reads the active list again.
  void Refresh();

  // Hidden or system items are shown from now on if they were not, and the other way round. Lists
  // of panes that are closed see it when they are next read.
  void HiddenShowHide();
  void SystemShowHide();

 private:
  void ShowHide(std::string_view entry, bool lister::ListerControl::*shown);

  workspace::Workspace& workspace_;
};

}  // namespace tarnwell::lists
