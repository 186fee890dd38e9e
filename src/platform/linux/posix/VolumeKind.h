// Whether a volume lies on this machine.
#pragma once

#include <string>

#include "platform/linux/posix/Descriptor.h"

namespace tarnwell::platform {

// Of the volume that holds the open folder. False for a share: others change it without a word to
// this machine, and a look at it may wait for the network. `path` is what it was opened by.
bool IsLocalVolume(const Descriptor& folder, const std::string& path);

}  // namespace tarnwell::platform
