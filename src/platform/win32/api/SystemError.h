// Outcomes of system calls as the program's own status.
#pragma once

#include "base/Status.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// The status for what a call failed with, by the codes of winerror.h; ERROR_SUCCESS gives success.
// The reason is the system's, in the user's language, without a full stop at its end.
base::Status SystemError(DWORD error);
// Of the call that failed last on this thread. Never a success.
base::Status LastError();
// The same for what COM gives; S_OK and S_FALSE are successes.
base::Status ComError(HRESULT result);

}  // namespace tarnwell::platform
