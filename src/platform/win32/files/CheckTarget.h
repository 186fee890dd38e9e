// Whether a folder can take items, or can be made to take them.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

// See FileSystem::CheckTarget.
base::Status CheckTarget(const std::string& path);

}  // namespace tarnwell::platform
