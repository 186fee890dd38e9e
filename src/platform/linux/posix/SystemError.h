// Outcomes of system calls as the program's own status.
#pragma once

#include "base/Status.h"

namespace tarnwell::platform {

// The status for an error number of the system; 0 gives success. The reason is the system's, in the
// user's language and in UTF-8, but a sentence of the program's own that says what to do where
// there are too many open files.
base::Status SystemError(int number);

// The status for a path that is neither a file nor a folder, where only a file will do.
base::Status NoRegularFile();

}  // namespace tarnwell::platform
