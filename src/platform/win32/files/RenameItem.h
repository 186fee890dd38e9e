// Renaming that overwrites nothing.
#pragma once

#include <string>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// Gives the item another path on its volume. A path that is taken by another item gives
// ERROR_ALREADY_EXISTS; another case of the item's own name works. Gives a code of winerror.h.
DWORD RenameItem(const std::string& from, const std::string& to);

}  // namespace tarnwell::platform
