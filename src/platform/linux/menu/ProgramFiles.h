// Files that start something by themselves, and those among them that were put where they are by
// whoever keeps the machine or its desktop.
#pragma once

#include <cstdint>
#include <string>

namespace tarnwell::platform {

enum class FileContent : std::uint8_t {
  Other,
  Binary,  // an executable binary
  Script,  // begins with "#!"
};

// By the first bytes of the regular file at the path; Other where they cannot be read. The name and
// the permissions, which some file systems give to all files alike, have no say.
FileContent ContentOf(const std::string& path);

// The item lies in or below a folder "applications" of the data folders that the XDG base directory
// specification names.
bool IsRegisteredEntry(const std::string& path);

// The item lies in a folder of PATH that belongs to root and is not for everybody to write to.
bool IsSystemProgram(const std::string& path);

}  // namespace tarnwell::platform
