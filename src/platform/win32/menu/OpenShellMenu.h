// The shell's menu object for items.
#pragma once

#include <shlobj.h>

#include <string>
#include <vector>

#include "platform/win32/api/Windows.h"
#include "platform/win32/shell/Com.h"

namespace tarnwell::platform {

// For the items of those full paths, which the shell's own dialogs call by `owner`; null where the
// shell has none. An item that is gone is left out.
ComPtr<IContextMenu> OpenShellMenu(HWND owner, const std::vector<std::string>& paths);

}  // namespace tarnwell::platform
