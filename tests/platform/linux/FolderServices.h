// Files and the services beside them, by the names of the tests that every adapter passes.
#pragma once

#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/LinuxFolderStamps.h"
#include "platform/linux/files/LinuxFolderWatch.h"
#include "platform/linux/search/LinuxFileSearch.h"

namespace tarnwell::platform {

using TestedFiles = LinuxFileSystem;
using TestedSearch = LinuxFileSearch;
using TestedStamps = LinuxFolderStamps;
using TestedWatch = LinuxFolderWatch;

// Hides an item whose name begins with a dot.
inline void Hide(const std::string& /*path*/) {}  // by the dot that its name begins with

// So many changes may be told in so many calls: two as a rule, but a busy machine may stretch them.
inline constexpr int BurstChanges = 10'000, BurstCalls = 5;

}  // namespace tarnwell::platform
