// What the program is built on.
#pragma once

#include <string>

namespace tarnwell::platform {

struct Library {
  std::string Name;  // with the version of what runs, where it tells one
  std::string License;
};

}  // namespace tarnwell::platform
