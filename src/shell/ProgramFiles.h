// Names of the program's own files, in the program's folder.
#pragma once

#include <string_view>

namespace tarnwell::shell {

inline constexpr std::string_view SettingsName = "user.usr";
inline constexpr std::string_view RunMarkerName = "run.txt";
inline constexpr std::string_view AnimationName = "ring6full.gif";

}  // namespace tarnwell::shell
