// Folders that the system knows by a meaning.
#pragma once

#include <string>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// The folder of that meaning (knownfolders.h) for the user; empty if there is none.
std::string FindKnownFolder(const GUID& meaning);

}  // namespace tarnwell::platform
