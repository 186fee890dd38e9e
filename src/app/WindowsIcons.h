// The shell's icons, as all its programs show them.
#pragma once

#include "ui/toolkit/IconSource.h"

namespace tarnwell::app {

// Empty where the shell has no icon for folders.
ui::SystemIcons ShellIcons();

}  // namespace tarnwell::app
