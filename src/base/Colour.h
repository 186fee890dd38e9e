// Colours as the settings and skin files store them.
#pragma once

#include <cstdint>

namespace tarnwell::base {

// 0x00BBGGRR: blue in the high byte of the three, red in the low one.
using Colour = std::int32_t;

constexpr Colour Rgb(int red, int green, int blue) {
  return red | green << 8 | blue << 16;
}
constexpr int Red(Colour colour) {
  return colour & 0xFF;
}
constexpr int Green(Colour colour) {
  return colour >> 8 & 0xFF;
}
constexpr int Blue(Colour colour) {
  return colour >> 16 & 0xFF;
}

inline constexpr Colour White = Rgb(255, 255, 255);
inline constexpr Colour Black = Rgb(0, 0, 0);

}  // namespace tarnwell::base
