// A folder that items are taken from or go to.
#pragma once

#include <string>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

struct OpenPlace {
  Descriptor Folder;
  std::string Path;  // full, without a separator at its end; empty for the root
};

// One that may not be read is opened to reach what lies in it.
ErrorNumber OpenPlaceAt(const std::string& path, OpenPlace& place);

// Makes the folder, and those above it that are missing.
ErrorNumber MakeFolders(const std::string& path);

}  // namespace tarnwell::platform
