#include "settings/LoadLastSettings.h"

#include <string>

#include "settings/Defaults.h"

namespace tarnwell::settings {
namespace {

void OpenPane(workspace::Workspace& space, int pane) {
  const std::string number = std::to_string(pane);
  space.Panes[pane].Status = workspace::Open;
  space.Form.Toolbar1["pane" + number].Pressed = true;
  space.Form.Menus["mnuPane" + number].Checked = true;
}

void FindActivePane(workspace::Workspace& space) {
  space.InitialActivePane = -1;
  // Counted anew: a damaged record of states may have been read in part.
  space.OpenPaneCount = 0;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    if (!space.Panes[pane].IsOpen()) continue;
    ++space.OpenPaneCount;
    if (space.InitialActivePane < 0) space.InitialActivePane = static_cast<std::int16_t>(pane);
  }
  if (space.OpenPaneCount == 0) {  // only a damaged file has every pane closed
    OpenPane(space, 0);
    space.OpenPaneCount = 1;
    space.InitialActivePane = 0;
  }
  space.PreviousActivePane = space.InitialActivePane;
  space.ActiveList = space.InitialActivePane;
  space.CurrentList = space.InitialActivePane;
}

}  // namespace

ReadMarkers LoadLastSettings(const StartSettings& start) {
  workspace::Workspace& space = start.Space;
  start.ShowStatus("getting program defaults...");
  AssignDefaults(space, start.Syntax, start.Switches);
  start.ShowStatus("loading initial pane defaults...");
  start.File.Clear();
  ReadMarkers markers;
  start.File.ReadSettingsFile(GlobalScope, markers);
  MakeBookmarkDisplayPaths(space.Settings);
  for (int pane = 0; pane < start.LeastPanes; ++pane) OpenPane(space, pane);
  FindActivePane(space);
  start.ShowStatus("arranging setup...");
  if (!markers.PositionFound) space.Form.State = forms::WindowState::Maximised;
  start.ShowStatus("loading initial pane...");
  start.CurrentSkin.LoadSkin(space.Settings.SkinName);
  start.Panes.InitializePaneSet(0);
  for (int pane = 1; pane < lister::PaneCount; ++pane) {
    if (!space.Panes[pane].IsOpen()) continue;
    start.ShowStatus("loading pane " + std::to_string(pane + 1) + "...");
    start.Panes.InitializePaneSet(pane);
  }
  start.ShowStatus("loading skin...");
  return markers;
}

void MakeBookmarkDisplayPaths(workspace::ProgramSettings& settings) {
  for (workspace::BookmarkRecord& bookmark : settings.Bookmarks) {
    bookmark.DisplayPath = workspace::DisplayPathOf(bookmark.Path);
  }
}

}  // namespace tarnwell::settings
