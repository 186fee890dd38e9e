// Replacing the content of a file in one step.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

// Writes the content under a temporary name beside the file, flushes it to the disk and moves it
// over the file. Attributes, streams, the permissions and the time of the making stay those of the
// file. Links are followed; one that leads to no file yet makes that file. On failure the old
// content stands and the temporary file is gone.
base::Status ReplaceContent(const std::string& path, const std::string& content);

}  // namespace tarnwell::platform
