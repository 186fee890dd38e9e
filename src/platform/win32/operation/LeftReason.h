// Why the shell has left an item.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

// By what can be seen of the item and of the folder that it was to go to, since the shell may say
// that all is well. `takes` tells that the item was to go from where it is; `target` is the path
// that it was to have, empty for a delete. Never a success.
base::Status ReasonOfLeft(const std::string& path, bool takes, const std::string& target);

}  // namespace tarnwell::platform
