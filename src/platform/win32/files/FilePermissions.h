// Permissions of files, as one file takes them over from another.
#pragma once

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// Gives an open file the list of those who may do something with another one, where it differs and
// the volume keeps such lists. Both are open for reading theirs, the first for writing it too.
// Gives a code of winerror.h.
DWORD TakePermissions(HANDLE file, HANDLE from);

}  // namespace tarnwell::platform
