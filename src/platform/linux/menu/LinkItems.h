// Symbolic links to items, beside them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/Status.h"

namespace tarnwell::platform {

// For each item of the folder a link "Link to NAME", under another name where that one is taken.
// Gives the path and the outcome of each.
std::vector<std::pair<std::string, base::Status>> LinkItems(const std::string& folder,
                                                            const std::vector<std::string>& names);

}  // namespace tarnwell::platform
