// The libraries that the adapters of Linux, and all of the program, are linked with.
#pragma once

#include <vector>

#include "platform/Library.h"

namespace tarnwell::platform {

std::vector<Library> LinuxLibraries();

}  // namespace tarnwell::platform
