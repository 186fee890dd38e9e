// Replacing a file's content in one step.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

// Writes the content under a temporary name beside the file, flushes it to the disk and renames it
// over the file. Keeps permissions, and the owner as far as the user may. Links are followed; one
// that leads to no file yet makes that file. On failure the old content stands and the temporary
// file is gone; only when the folder's own flush fails after the rename does the new one stand.
base::Status ReplaceFile(const std::string& path, const std::string& content);

}  // namespace tarnwell::platform
