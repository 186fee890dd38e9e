// What the system tells of an item, as the program's own attributes.
#pragma once

#include <sys/stat.h>

#include "base/Status.h"
#include "platform/FileSystem.h"

namespace tarnwell::platform {

// Of the item that `path` leads to from the open folder; a link is followed. Never mounts anything.
base::Status ReadItemStat(int folder, const char* path, ItemAttributes& attributes);

}  // namespace tarnwell::platform
