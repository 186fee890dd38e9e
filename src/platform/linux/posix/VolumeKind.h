// Whether a volume lies on this machine.
#pragma once

#include <string>
#include <string_view>

#include "platform/linux/posix/Descriptor.h"

namespace tarnwell::platform {

// Of the volume that holds the open folder. False for a share: others change it without a word to
// this machine, and a look at it may wait for the network. `path` is what it was opened by.
bool IsLocalVolume(const Descriptor& folder, const std::string& path);

// The same by a type of file system as the table of mounts has it, of a volume that is no disk:
// touches no volume. True for a share, and for a program that nothing is known of.
bool IsFarType(std::string_view type);

}  // namespace tarnwell::platform
