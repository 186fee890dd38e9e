// Why an item could not be made or renamed, for whoever typed the name.
#pragma once

#include "base/Status.h"

namespace tarnwell::platform {

// The status for an error number of the system, its reason a sentence that says what to do; in the
// system's own words where there is nothing better. 0 gives success.
base::Status NamingError(int number);

}  // namespace tarnwell::platform
