// The colours that users code items with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Colour.h"

namespace tarnwell::lister {

enum class ItemColour : std::uint8_t {
  Default,  // none
  Black,
  Gray,
  DarkGreen,
  LightGreen,
  Blue,
  Cyan,
  Yellow,
  Orange,
  Red,
  Burgundy,
  Lavender,
};

struct ItemColourEntry {
  std::string_view Word;  // as menus and extended attributes have it
  base::Colour Colour;
};

// In the order of ItemColour.
inline constexpr std::array<ItemColourEntry, 12> ItemColours{{
    {"default", 0},
    {"black", base::Rgb(0, 0, 0)},
    {"gray", base::Rgb(128, 128, 128)},
    {"dark green", base::Rgb(0, 110, 40)},
    {"light green", base::Rgb(110, 205, 90)},
    {"blue", base::Rgb(30, 80, 220)},
    {"cyan", base::Rgb(0, 175, 200)},
    {"yellow", base::Rgb(235, 205, 0)},
    {"orange", base::Rgb(240, 130, 0)},
    {"red", base::Rgb(220, 30, 30)},
    {"burgundy", base::Rgb(130, 10, 50)},
    {"lavender", base::Rgb(165, 125, 225)},
}};

// Default for a word that is none of these.
constexpr ItemColour ColourOfWord(std::string_view word) {
  for (std::size_t at = 0; at < ItemColours.size(); ++at) {
    if (ItemColours[at].Word == word) return static_cast<ItemColour>(at);
  }
  return ItemColour::Default;
}

// A colour that an item was given; both as its extended attribute has them, empty for none.
struct ColouredItem {
  std::string Path;
  std::string Before;
  std::string After;
};

}  // namespace tarnwell::lister
