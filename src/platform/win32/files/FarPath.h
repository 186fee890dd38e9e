// Which paths begin at another machine.
#pragma once

#include <optional>
#include <string>

namespace tarnwell::platform {

// The share that the path begins at, "\\server\share" or "Z:\", as the path has it: a network path,
// or one on a drive that stands for a share. By the text and the table of drives alone, so it never
// waits for a server, and links further down do not count.
std::optional<std::string> NetworkShareOf(const std::string& path);

}  // namespace tarnwell::platform
