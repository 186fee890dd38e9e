// Unmounts what is mounted from elsewhere.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

#include "platform/NetworkPlaces.h"
#include "platform/linux/network/SystemMounts.h"

namespace tarnwell::platform {

// Both as NetworkPlaces::Disconnect: of a place of the desktop's,
std::unique_ptr<AskingTask> DisconnectMount(GMount* mount, PlaceUser& user);
// and of one of the system's table, by the system's own programs for it. These end by themselves if
// the task gives up; one that waits for a machine that does not answer is left behind.
std::unique_ptr<AskingTask> DisconnectMount(const Mount& mount, PlaceUser& user);

}  // namespace tarnwell::platform
