// Whether an item is still as an operation has left it.
#pragma once

#include <string>

#include "platform/FileOperation.h"

namespace tarnwell::platform {

// See OperationEngine::Fingerprint. No link is followed; `Below` is 0 where a folder cannot be read
// whole.
ItemFingerprint FingerprintOf(const std::string& path, bool isWhole);

}  // namespace tarnwell::platform
