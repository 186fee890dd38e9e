// Whether a volume takes a name.
#pragma once

#include <string>

#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// Whether some volumes may refuse the name for what stands in it.
bool IsUnusualName(const std::string& name);

// Tries the name inside of a temporary folder, so that nothing is ever seen under it; the open
// folder is on the volume. Gives the error by which the name is refused; NoError also where nothing
// could be tried.
ErrorNumber TryName(int folder, const std::string& name);

}  // namespace tarnwell::platform
