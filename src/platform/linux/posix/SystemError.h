// Outcomes of system calls as the program's own status.
#pragma once

#include "base/Status.h"
#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// The status for what a call failed with; NoError gives success. The reason is the system's, in the
// user's language and in UTF-8, but a sentence of the program's own that says what to do where
// there are too many open files.
base::Status SystemError(ErrorNumber error);

// The status for a path that is neither a file nor a folder, where only a file will do.
base::Status NoRegularFile();

}  // namespace tarnwell::platform
