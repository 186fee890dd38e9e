// What the system tells of an item, as the program's own attributes.
#pragma once

#include <sys/stat.h>

#include <string>

#include "base/Status.h"
#include "platform/FileSystem.h"

namespace tarnwell::platform {

ItemKind KindOfMode(std::uint32_t mode);
// Within 64 bits: file systems may hold times beyond what they reach (years 1677 to 2262).
std::int64_t Nanoseconds(const statx_timestamp& time);

// Of the item that `path` leads to from the open folder; a link is followed. Never mounts anything.
base::Status ReadItemStat(int folder, const char* path, ItemAttributes& attributes);

// Where the link leads, in bytes, as it has it; empty for what is none.
std::string ReadLinkTarget(int folder, const char* path);

}  // namespace tarnwell::platform
