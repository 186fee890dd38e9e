// Parts of sort keys that compare as bytes.
#pragma once

#include <cstdint>
#include <string>

namespace tarnwell::lister {

inline constexpr char TextEnd = '\0';  // below all that stands in a key of text

// In the order of numbers, for numbers below 256 to the power of `bytes`.
inline void AppendNumber(std::uint64_t number, int bytes, std::string& key) {
  while (bytes-- > 0) key += static_cast<char>(number >> (8 * bytes) & 0xFF);
}

// In the order of times, those before 1970 included.
inline void AppendTime(std::int64_t time, std::string& key) {
  constexpr std::uint64_t sign = std::uint64_t{1} << 63;
  AppendNumber(static_cast<std::uint64_t>(time) ^ sign, 8, key);
}

}  // namespace tarnwell::lister
