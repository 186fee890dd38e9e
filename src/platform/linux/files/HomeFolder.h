// Where the user's home folder is.
#pragma once

#include <string>

namespace tarnwell::platform {

// $HOME, or what the system's list of users says; without a separator at its end unless it is the
// root. Empty if that is no folder.
std::string FindHomeFolder();

}  // namespace tarnwell::platform
