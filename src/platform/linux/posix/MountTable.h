// What is mounted where.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarnwell::platform {

// A line of the table that proc(5) calls mountinfo.
struct MountedVolume {
  std::uint64_t Id = 0;  // as statx tells it of what lies there
  std::string Device;    // "8:1"; the same for every mount of one volume
  std::string Root;      // path in the volume of what is mounted
  std::string Path;      // where; full, without links
  std::string Type;      // of file system: "ext4", "nfs4", "fuse.sshfs"
  std::string Source;    // what is mounted, as the file system calls it: "server:/export"
};

// Empty where the system does not tell. Touches no volume.
std::vector<MountedVolume> ReadMountTable();

}  // namespace tarnwell::platform
