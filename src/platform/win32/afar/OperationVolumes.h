// Which volumes an operation touches.
#pragma once

#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/afar/FarPlaces.h"

namespace tarnwell::platform {

// See OperationEngine::VolumesOf. A volume is named by its serial number; one of another machine by
// its share, so that it is not touched. `places` may be null.
std::vector<std::string> VolumesOf(const OperationRequest& request, const FarPlaces* places);

}  // namespace tarnwell::platform
