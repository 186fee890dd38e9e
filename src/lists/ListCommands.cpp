#include "lists/ListCommands.h"

namespace tarnwell::lists {

void ListCommands::Sort(std::string_view word) {
  if (auto* const list = workspace_.Lists.Find(workspace_.CurrentList)) list->SortCommand(word);
}

void ListCommands::MoveHeading(std::string_view word) {
  if (auto* const list = workspace_.Lists.Find(workspace_.CurrentList)) list->MoveHeading(word);
}

void ListCommands::ChooseHeading(std::string_view word) {
  if (auto* const list = workspace_.Lists.Find(workspace_.CurrentList)) list->ChooseHeading(word);
}

void ListCommands::TurnSort() {
  if (auto* const list = workspace_.Lists.Find(workspace_.CurrentList)) list->TurnSort();
}

void ListCommands::Refresh() {
  if (auto* const list = workspace_.Lists.Find(workspace_.ActiveList)) list->RefreshList();
}

void ListCommands::ToggleHeading(std::string_view menuName) {
  if (auto* const list = workspace_.Lists.Find(workspace_.CurrentList)) {
    list->HeadingMenuClick(menuName);
  }
}

void ListCommands::CalculateFolderSizes() {
  if (auto* const list = workspace_.Lists.Find(workspace_.CurrentList)) {
    list->CalculateFolderSizes();
  }
}

void ListCommands::HiddenShowHide() {
  ShowHide("mnuHidden", &lister::ListerControl::ShowHidden);
}

void ListCommands::SystemShowHide() {
  ShowHide("mnuSystem", &lister::ListerControl::ShowSystem);
}

void ListCommands::ShowHide(std::string_view entry, bool lister::ListerControl::*shown) {
  forms::MenuEntry& tick = workspace_.Form.Menus[entry];
  tick.Checked = !tick.Checked;
  workspace_.Form.Touch();
  const bool show = tick.Checked;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const workspace::PaneRecord& record = workspace_.Panes[pane];
    if (!record.Initialized) continue;
    lister::ListerControl& folders = workspace_.Lists.Folders(pane);
    lister::ListerControl& files = workspace_.Lists.Files(pane);
    folders.*shown = show;
    files.*shown = show;
    if (record.Status != workspace::Open) continue;
    folders.RefreshList();
    files.RefreshList();
  }
}

}  // namespace tarnwell::lists
