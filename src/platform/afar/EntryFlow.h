// The items of a folder on their way from the thread that reads it to the one that takes them.
#pragma once

#include <memory>

#include "platform/FileSystem.h"
#include "platform/afar/FarCalls.h"

namespace tarnwell::platform {

// Reads the folder, or the rest of it, by a call to the place, while `take` gets on this thread
// what has come; OpenedFolder::Read otherwise.
base::Status ReadBeside(const FarCalls& calls, const FarPlace& place,
                        const std::shared_ptr<OpenedFolder>& folder, const TakeEntry& take);

}  // namespace tarnwell::platform
