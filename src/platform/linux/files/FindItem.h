// Whether there is an item at a path.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

// A link counts itself, wherever it leads. Mounts nothing.
base::Status FindItem(const std::string& path);

}  // namespace tarnwell::platform
