// The libraries that all of the program is linked with on Windows.
#pragma once

#include <vector>

#include "platform/Library.h"

namespace tarnwell::platform {

std::vector<Library> WindowsLibraries();

}  // namespace tarnwell::platform
