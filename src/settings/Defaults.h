// What every setting is before the settings file is read.
#pragma once

#include "base/PathSyntax.h"
#include "settings/ViewSwitches.h"
#include "workspace/Workspace.h"

namespace tarnwell::settings {

// Gives settings, window, menu, toolbar and pane records the values of a first start.
void AssignDefaults(workspace::Workspace& space, const base::PathSyntax& syntax,
                    ViewSwitches& switches);

}  // namespace tarnwell::settings
