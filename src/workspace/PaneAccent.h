// The accents by which a user tells panes apart: colours for a stripe in the title.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/Colour.h"

namespace tarnwell::workspace {

struct PaneAccent {
  std::string_view Caption;
  base::Colour Colour;  // shown as near to it as can be seen on the title
  std::string_view Picture;
};

inline constexpr std::array<PaneAccent, 8> PaneAccents{{
    {"&Red", base::Rgb(220, 30, 30), "pic_cred"},
    {"&Orange", base::Rgb(240, 130, 0), "pic_corange"},
    {"&Yellow", base::Rgb(235, 205, 0), "pic_cyellow"},
    {"&Green", base::Rgb(110, 205, 90), "pic_cgreen"},
    {"&Cyan", base::Rgb(0, 175, 200), "pic_ccyan"},
    {"&Blue", base::Rgb(30, 80, 220), "pic_cblue"},
    {"&Lavender", base::Rgb(165, 125, 225), "pic_clavender"},
    {"Gr&ay", base::Rgb(128, 128, 128), "pic_cgray"},
}};

// Of PaneRecord::Accent: null for none.
constexpr const PaneAccent* FindAccent(std::int32_t accent) {
  const bool isOne = accent >= 1 && accent <= static_cast<std::int32_t>(PaneAccents.size());
  return isOne ? &PaneAccents.at(static_cast<std::size_t>(accent - 1)) : nullptr;
}

}  // namespace tarnwell::workspace
