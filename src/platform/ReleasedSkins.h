// The skins that come with the program, as they were in each of its releases.
#pragma once

#include <string_view>

namespace tarnwell::platform {

// Whether a file with that digest, SHA-256 in small hexadecimal digits, is a skin of some release,
// this one included: nobody has changed it.
bool IsReleasedSkin(std::string_view digest);

}  // namespace tarnwell::platform
