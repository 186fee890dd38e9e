// What the settings file holds, from what the program has in memory.
#pragma once

#include <string>
#include <vector>

#include "settings/SettingRecord.h"
#include "workspace/Workspace.h"

namespace tarnwell::settings {

// The whole content of the file: the records of the program, a block for each pane, what else is
// kept of all panes, and "End". A pane that was not set up in this run takes its block from the
// records loaded at the start, as they were read. A record whose text the syntax cannot carry is
// left out; a bookmark of that kind becomes "(empty)".
std::string SettingsContent(const workspace::Workspace& space,
                            const std::vector<SettingRecord>& loaded);

}  // namespace tarnwell::settings
