// Whether an item is still as an operation has left it.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <functional>
#include <string>

#include "platform/FileOperation.h"
#include "platform/FingerprintSum.h"
#include "platform/linux/posix/VolumeTraits.h"

namespace tarnwell::platform {

// Of an item that was looked at, without what lies below it. `traits` are those of its volume.
ItemFingerprint FingerprintOf(const struct statx& found, const VolumeTraits& traits);

// Reads the whole folder of that name in the open one, and follows no link. 0 where it cannot be
// read whole, where another volume is mounted in it, or after `goesOn` gave false.
std::uint64_t FindBelow(int folder, const char* name, const std::function<bool()>& goesOn);

// See OperationEngine::Fingerprint.
ItemFingerprint FingerprintOf(const std::string& path, bool isWhole);

}  // namespace tarnwell::platform
