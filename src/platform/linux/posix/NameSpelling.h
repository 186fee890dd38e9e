// Names on volumes that take no notice of case.
#pragma once

#include <string>

namespace tarnwell::platform {

// Whether two names differ in case, or in how their letters are composed, and in nothing else.
bool IsSameButForCase(const std::string& one, const std::string& other);

// How the open folder itself spells the name of the item that is found there under `name`. Cheap
// where the volume knows case; `name` where the folder cannot be read.
std::string SpellingThere(int folder, const std::string& name);

// Whether the open folder holds the name in just this spelling; true if it cannot be read.
bool HasExactName(int folder, const std::string& name);

}  // namespace tarnwell::platform
