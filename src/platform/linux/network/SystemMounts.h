// The system's table of mounts, with what the desktop makes of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::platform {

// One line of the table.
struct Mount {
  std::string Path;       // the mount point
  std::string Label;      // a name for people
  std::string Source;     // device, share or the like
  std::string Type;       // "ext4", "nfs"
  bool Internal = false;  // of the system's own workings, by what the desktop says
  bool Shown = false;     // meant for people, by what the desktop says
};

// Touches no volume.
std::vector<Mount> ReadSystemMounts();

// Whether volumes of the type lie on other machines.
bool IsShareType(std::string_view type);

}  // namespace tarnwell::platform
