// The property sheet of the system's shell.
#pragma once

#include <string>
#include <vector>

#include "forms/Messenger.h"
#include "platform/ShellWindows.h"

namespace tarnwell::fileops {

// For items by their full paths, at least one; it lives on by itself. A message tells where there
// is none.
void ShowProperties(platform::ShellWindows& shell, forms::Messenger& messenger,
                    const std::vector<std::string>& paths);

}  // namespace tarnwell::fileops
