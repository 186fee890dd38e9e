// What the shell holds on the clipboard for this program.
#pragma once

#include <string>

#include "platform/win32/shell/Com.h"

namespace tarnwell::platform {

// The full paths, as a base::ItemList, of items that the clipboard holds to be moved, and that were
// put there by this process; none of another's, which might take its time to answer. For the thread
// of the ComThread that put them there.
std::string ItemsCutHere();

}  // namespace tarnwell::platform
