// What a folder holds, by the system's lists of items with their numbers.
#pragma once

#include <string>

#include "base/Status.h"
#include "platform/FileSystem.h"

namespace tarnwell::platform {

// As FileSystem::MeasureFolder tells. Every name of a file counts as a file, the length of a file
// with several names once, by its number on the volume, where that is told: no file is opened for
// it. Lengths are those that the folder tells. Folders may lie as deep as they like, and those that
// are swapped for links during the walk lead nowhere else. What goes away during the walk is no
// trouble.
base::Status MeasureFolder(const std::string& folder, const FileSystem::GoOn& goOn,
                           FolderTotal& total);

}  // namespace tarnwell::platform
