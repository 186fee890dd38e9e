// Programs in processes of their own.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

// Starts the program at the path, in the folder (empty for that of this process), and does not
// wait for it. Parameters are split at blanks but for those within quotes; no shell sees them. The
// program runs in a terminal unless a desktop entry for it says that it has windows of its own.
base::Status StartProgram(const std::string& path, const std::string& parameters,
                          const std::string& folder);

}  // namespace tarnwell::platform
