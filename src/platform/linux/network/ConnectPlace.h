// Mounts a place on the network by GIO.
#pragma once

#include <memory>
#include <string>

#include "platform/NetworkPlaces.h"

namespace tarnwell::platform {

// As NetworkPlaces::Connect.
std::unique_ptr<AskingTask> ConnectPlace(const std::string& address, const std::string& password,
                                         PlaceUser& user);

}  // namespace tarnwell::platform
