// The user's home folder.
#pragma once

#include <string>

namespace tarnwell::platform {

// That of the user's profile; empty where there is none.
std::string FindHomeFolder();

}  // namespace tarnwell::platform
