// Why an item could not be made or renamed, for whoever typed the name.
#pragma once

#include "base/Status.h"
#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// The status for what a call failed with, its reason a sentence that says what to do; in the
// system's own words where there is nothing better. NoError gives success.
base::Status NamingError(ErrorNumber error);

}  // namespace tarnwell::platform
