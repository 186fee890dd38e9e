// The Properties window of an item, by its path alone.
#pragma once

#include <string>

#include "forms/Messenger.h"
#include "platform/FileSystem.h"
#include "platform/ItemWindows.h"

namespace tarnwell::fileops {

// Results of ShowProperties from this one on are those of a window that has opened.
inline constexpr int LeastInstance = 33;

// Opens the window, which lives on by itself. Shows nothing where there is no such item, and gives
// less than LeastInstance.
int ShowProperties(const platform::FileSystem& files, platform::ItemWindows& windows,
                   const std::string& path);

// The same; a message tells where there is nothing to show.
void ShowPropertiesOrTell(const platform::FileSystem& files, platform::ItemWindows& windows,
                          forms::Messenger& messenger, const std::string& path);

}  // namespace tarnwell::fileops
