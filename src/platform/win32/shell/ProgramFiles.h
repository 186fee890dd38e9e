// Programs by the names that people type.
#pragma once

#include <string>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// Full path of the program of that name in the folders of PATH, with an ending of PATHEXT where the
// name has none of these; empty if there is none. A name with a separator is none.
std::wstring FindProgram(const std::wstring& name);

// Whether what starts there, a program or a batch file, is shown in a terminal.
bool StartsInTerminal(const std::wstring& path);

}  // namespace tarnwell::platform
