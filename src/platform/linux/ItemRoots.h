// Which items are the roots of drives.
#pragma once

#include <string>
#include <vector>

namespace tarnwell::platform {

// Whether "/", the home folder (empty for none), or any place where something is mounted is among
// the items of the folder. Touches no volume but the folder's own.
bool HoldsRoot(const std::string& folder, const std::vector<std::string>& names,
               const std::string& home);

}  // namespace tarnwell::platform
