// Tells items apart, beyond the path that they have at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/FileOperation.h"

namespace tarnwell::platform {

// The same for as long as the item is on one volume; of its full path where numbers do not last.
inline ItemKey KeyOf(const ItemFingerprint& print, std::string_view path) {
  if (print.Number == 0) return std::hash<std::string_view>()(path);
  constexpr std::uint64_t stir = 0x9E3779B97F4A7C15U;  // 2^64 by the golden ratio
  std::uint64_t key = print.Device;
  for (const std::uint64_t part : {print.Number, static_cast<std::uint64_t>(print.Born)}) {
    key = (key ^ part) * stir;
    key ^= key >> 32U;
  }
  return key;
}

}  // namespace tarnwell::platform
