// Files that lead to other items by the shell's own kind of link.
#pragma once

#include <string>

#include "platform/win32/shell/Com.h"

namespace tarnwell::platform {

// Full path of the folder that the shortcut, a file ".lnk", leads to, as it was when the shortcut
// was made; empty for all else. Needs a ComThread.
std::string FolderOfShortcut(const std::string& path);

}  // namespace tarnwell::platform
