// The skins that come with the program, as they were in each of its releases.
#pragma once

#include <string>

namespace tarnwell::platform {

// Whether the bytes are those of a skin of some release, this one included: nobody has changed
// them.
bool IsReleasedSkin(const std::string& content);

}  // namespace tarnwell::platform
