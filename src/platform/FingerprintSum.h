// What lies below a folder, as its fingerprint has it.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/FileOperation.h"

namespace tarnwell::platform {

// `Below` of a folder that holds nothing. Each item that lies in a folder adds its share to that,
// in any order; the share of a subfolder has its own `Below` in it. Of this run alone.
inline constexpr std::uint64_t NothingBelow = 1;
std::uint64_t ShareOf(std::string_view name, const ItemFingerprint& item);

// The time, in nanoseconds, as FAT keeps it: down to full two seconds. What is written may show the
// full time until it is read again.
std::int64_t CoarseTime(std::int64_t time);

}  // namespace tarnwell::platform
