// The one routine that gives every setting its value at the start.
#pragma once

#include <functional>
#include <string>

#include "base/PathSyntax.h"
#include "settings/SettingsFile.h"
#include "settings/Skin.h"
#include "workspace/PaneSet.h"

namespace tarnwell::settings {

struct StartSettings {
  workspace::Workspace& Space;
  workspace::PaneSet& Panes;
  SettingsFile& File;
  Skin& CurrentSkin;
  ViewSwitches& Switches;
  const base::PathSyntax& Syntax;
  std::function<void(const std::string&)> ShowStatus;  // the start-up status line
  int LeastPanes = 0;  // so many, from the first on, are open whatever the file says
};

// Defaults, then the settings file over them, then the skin and the panes. Gives what was found out
// on the way.
ReadMarkers LoadLastSettings(const StartSettings& start);

// Rebuilds the texts under which menus show the bookmarks.
void MakeBookmarkDisplayPaths(workspace::ProgramSettings& settings);

}  // namespace tarnwell::settings
