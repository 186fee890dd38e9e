// What machines on the network announce, as GIO lists it.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/NetworkPlaces.h"

namespace tarnwell::platform {

// As NetworkPlaces::FindOffers.
std::unique_ptr<PlaceTask> FindOffers(
    std::function<void(const std::vector<OfferedPlace>& found)> told);

}  // namespace tarnwell::platform
