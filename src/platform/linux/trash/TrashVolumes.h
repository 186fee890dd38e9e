// The volumes that may hold a trash.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace tarnwell::platform {

// Where to look for what the user has thrown away.
struct TrashPlaces {
  std::string HomeTrash;  // full path; empty if there is none
  uid_t User = 0;
  // Full paths of the tops of the volumes, without links. Touches no volume.
  std::function<std::vector<std::string>()> Volumes;

  static TrashPlaces OfProcess();
};

}  // namespace tarnwell::platform
