// What the record of items that were set aside holds: see AsideRecordName.
#pragma once

#include <string>
#include <vector>

#include "platform/FileOperation.h"

namespace tarnwell::platform {

// `paths` holds for each item the path that it had and the one that it has. Steps are added at the
// end in their order, and leave it as they stand there, one behind the other.
void AddSteps(std::vector<std::string>& paths, const std::vector<PlacedItem>& steps);
void EraseSteps(std::vector<std::string>& paths, const std::vector<PlacedItem>& steps);

}  // namespace tarnwell::platform
