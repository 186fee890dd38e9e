// Which volumes an operation touches.
#pragma once

#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/afar/FarPlaces.h"

namespace tarnwell::platform {

// See OperationEngine::VolumesOf: those of the folders that the items lie in and go to, or of the
// nearest one above that is there. A volume is named by its device; one of another machine by where
// it is mounted, as the table of mounts tells, so that it is not touched. Each folder is looked at
// once. `places` may be null.
std::vector<std::string> VolumesOf(const OperationRequest& request, const FarPlaces* places);

}  // namespace tarnwell::platform
