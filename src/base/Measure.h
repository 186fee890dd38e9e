// Measures of the window: twips (1/1440 inch), 15 of them to a logical pixel.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace tarnwell::base {

// A length or position in twips. Settings store some of them in 16 bits; in memory all are 32.
using Twips = std::int32_t;

inline constexpr Twips TwipsPerPixel = 15;

// The nearest whole measure, ties to even, held within the range of Twips. Not a number gives 0.
inline Twips RoundToTwips(double value) {
  if (std::isnan(value)) return 0;
  constexpr double low = std::numeric_limits<Twips>::min();
  constexpr double high = std::numeric_limits<Twips>::max();
  if (value <= low) return std::numeric_limits<Twips>::min();
  if (value >= high) return std::numeric_limits<Twips>::max();
  return static_cast<Twips>(std::nearbyint(value));  // the default mode: nearest, ties to even
}

}  // namespace tarnwell::base
