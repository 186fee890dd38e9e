// Symbolic links to items, beside them.
#pragma once

#include <string>
#include <vector>

#include "platform/linux/menu/FailureList.h"

namespace tarnwell::platform {

// For each item of the folder a link "Link to NAME", under another name where that one is taken.
void LinkItems(const std::string& folder, const std::vector<std::string>& names,
               FailureList& failures);

}  // namespace tarnwell::platform
