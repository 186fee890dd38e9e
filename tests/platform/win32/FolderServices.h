// Files and the services beside them, by the names of the tests that every adapter passes.
#pragma once

#include "platform/win32/api/WideName.h"
#include "platform/win32/api/Windows.h"
#include "platform/win32/files/Fingerprint.h"
#include "platform/win32/files/WindowsFileSystem.h"
#include "platform/win32/files/WindowsFolderStamps.h"
#include "platform/win32/files/WindowsFolderWatch.h"
#include "platform/win32/search/WindowsFileSearch.h"

namespace tarnwell::platform {

using TestedFiles = WindowsFileSystem;
using TestedSearch = WindowsFileSearch;
using TestedStamps = WindowsFolderStamps;
using TestedWatch = WindowsFolderWatch;

// Hides an item whose name begins with a dot.
inline void Hide(const std::string& path) {
  SetFileAttributesW(LongPath(path).c_str(), FILE_ATTRIBUTE_HIDDEN);
}

// So many changes may be told in so many calls: far fewer than there are, however slow the disk.
inline constexpr int BurstChanges = 2'000, BurstCalls = 40;

}  // namespace tarnwell::platform
