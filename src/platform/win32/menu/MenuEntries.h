// What stands in a menu of the system.
#pragma once

#include <shlobj.h>

#include <string>
#include <vector>

#include "platform/ContextMenu.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

struct IdRange {
  int First = 0, Last = 0;
};

// The entries that the shell has put into the menu, from the top down, without those of submenus.
// An entry that the shell draws by itself may have no caption, and gets its verb for one: "Copy".
// What opens a submenu, and what is numbered beyond the range, has the number 0.
std::vector<ContextEntry> EntriesOf(HMENU menu, const IdRange& range, IContextMenu& shell);

// What the shell calls the entry in any language, such as "copy"; empty where it has no name.
// `offset` counts from the range's first number.
std::string VerbOf(IContextMenu& shell, int offset);

}  // namespace tarnwell::platform
