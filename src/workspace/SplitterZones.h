// Where on the main form a splitter can be taken hold of.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "forms/Controls.h"
#include "workspace/ArrangePanes.h"

namespace tarnwell::workspace {

// Of columns: the split between the two lists of a pane, and the bar between two panes.
inline constexpr std::string_view ZoneResizeNSVertical = "ZoneResizeNSVertical";
inline constexpr std::string_view ZoneResizeWEVertical = "ZoneResizeWEVertical";
// Of rows: the same.
inline constexpr std::string_view ZoneResizeWEHorizontal = "ZoneResizeWEHorizontal";
inline constexpr std::string_view ZoneResizeNSHorizontal = "ZoneResizeNSHorizontal";
inline constexpr std::string_view ZoneNowhere = "nowhere";

struct ZoneHit {
  std::string_view Zone = ZoneNowhere;
  forms::MousePointer Pointer = forms::MousePointer::Arrow;
  std::int16_t Pane = -1;  // whose split it is, or the one before the bar
};

// What the search looks at, in twips. The folder list of a closed pane has no place.
struct ZoneSearch {
  std::int32_t Layout = Horizontal;
  std::array<std::optional<Place>, lister::PaneCount> FolderLists{};
  std::int16_t LastOpenPane = -1;
  base::Twips ListsTop = 0;
  base::Twips PaneGap = 0;
};

// The zone at that place of the form; edges are inside. Splits go before bars between panes.
ZoneHit FindZone(const ZoneSearch& search, float x, float y);

}  // namespace tarnwell::workspace
