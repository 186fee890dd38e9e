// What a folder holds, by a walk over descriptors.
#pragma once

#include <string>

#include "base/Status.h"
#include "platform/FileSystem.h"
#include "platform/linux/posix/Descriptor.h"

namespace tarnwell::platform {

// As FileSystem::MeasureFolder tells. Every name of a file counts as a file, the length of a file
// with several names once. Links, devices and the like have no length. Folders may lie as deep as
// they like, and folders that are moved or swapped for links during the walk lead nowhere else.
// What goes away during the walk is no trouble.
base::Status MeasureFolder(const std::string& folder, const FileSystem::GoOn& goOn,
                           FolderTotal& total);
// The same of a folder that is open for reading.
base::Status MeasureFolder(Descriptor folder, const FileSystem::GoOn& goOn, FolderTotal& total);

}  // namespace tarnwell::platform
