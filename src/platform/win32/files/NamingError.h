// Why an item could not be made or renamed, for whoever typed the name.
#pragma once

#include "base/Status.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// The status for what a call failed with, by the codes of winerror.h; its reason is a sentence that
// says what to do, in the system's own words where there is nothing better. ERROR_SUCCESS gives
// success.
base::Status NamingError(DWORD error);

}  // namespace tarnwell::platform
