// Which paths begin at another machine.
#pragma once

#include <optional>
#include <string>

namespace tarnwell::platform {

// A share of another machine.
struct NetworkShare {
  std::string Path;  // "\\server\share"; "Z:\" for a drive that tells of neither
  std::string Server;
};

// The one that the path begins at: a network path, or one on a drive that stands for a share. By
// the text and the table of drives alone, so it never waits for a server; links further down do not
// count.
std::optional<NetworkShare> NetworkShareOf(const std::string& path);

}  // namespace tarnwell::platform
