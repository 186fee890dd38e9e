// Which volumes an operation touches, as far as that needs no system.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/afar/FarPlaces.h"

namespace tarnwell::platform {

// See OperationEngine::VolumesOf: those of the folders that the items lie in and go to, or of the
// nearest one above that is there. A far one has the name of its place and is not touched; the
// others are told by `volumeAt`, which is asked once for each folder and gives an empty name for
// what is not there. `places` may be null.
std::vector<std::string> VolumesOf(const OperationRequest& request, const FarPlaces* places,
                                   const std::function<std::string(const std::string&)>& volumeAt);

}  // namespace tarnwell::platform
