// Which mounts are drives. Rules over plain data; what is mounted comes from LinuxDrives.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/linux/network/SystemMounts.h"

namespace tarnwell::platform {

// True for a volume that a person would name: one the desktop shows, and a disk or share mounted
// somewhere of the user's own choosing ("/data"), which it does not.
bool IsVolume(const Mount& mount);

// Home, "/", then the volumes by their paths, none twice. An empty home is left out.
std::vector<Drive> DrivesOf(const std::string& home, const std::vector<Mount>& mounts);

// The mount point of the volume that holds the path, else "/". Home counts where something is
// mounted right there. Below the desktop's one mount for all of its places each folder is a volume,
// also while the desktop has not said so.
std::string DriveHolding(std::string_view path, const std::string& home,
                         const std::vector<Mount>& mounts);

}  // namespace tarnwell::platform
