// Symbolic links to items, beside them.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"

namespace tarnwell::platform {

struct LinkOutcome {
  std::string Item;  // full path
  std::string Link;  // full path of its link; empty where none was made
  base::Status Status;
};

// For each item of the folder a link "Link to NAME", under another name where that one is taken.
std::vector<LinkOutcome> LinkItems(const std::string& folder,
                                   const std::vector<std::string>& names);

}  // namespace tarnwell::platform
