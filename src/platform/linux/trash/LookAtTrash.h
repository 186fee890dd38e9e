// Whether there is a trash, and by what its changes are noticed.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "platform/linux/trash/TrashFolder.h"

namespace tarnwell::platform {

struct TrashLook {
  bool IsThere = false;
  base::Status Trouble;  // why there is none that counts, though something stands at its path
  ItemIdentity Self;
  bool IsLocal = false;  // others cannot change it without a notice to this machine
  // Of the folder of files and that of notes: which it is, and when it was changed.
  struct Stamp {
    ItemIdentity Self;
    std::int64_t Changed = 0;  // nanoseconds since 1970-01-01 UTC
    bool operator==(const Stamp&) const = default;
  };
  std::array<Stamp, 2> Stamps;
  // Full paths of folders to be watched, with the names there that matter. No name stands for all.
  std::map<std::string, std::set<std::string>> Ways;
};

// May wait for the volume.
TrashLook LookAtTrash(const TrashPath& path);

}  // namespace tarnwell::platform
