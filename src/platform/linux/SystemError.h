// Outcomes of system calls as the program's own status.
#pragma once

#include "base/Status.h"

namespace tarnwell::platform {

// The status for an error number of the system, its reason in the user's language and in UTF-8;
// 0 gives success.
base::Status SystemError(int number);

// The status for a path that is neither a file nor a folder, where only a file will do.
base::Status NoRegularFile();

}  // namespace tarnwell::platform
