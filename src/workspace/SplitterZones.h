// Where on the main form a splitter can be taken hold of.
#pragma once

#include <cstdint>
#include <optional>

#include "forms/Controls.h"
#include "workspace/ArrangePanes.h"

namespace tarnwell::workspace {

struct ZoneHit {
  MouseZone Zone = MouseZone::Nowhere;
  forms::MousePointer Pointer = forms::MousePointer::Arrow;
  std::int16_t Pane = -1;  // whose split it is, or the one before the bar
};

// What the search looks at, in twips. The folder list of a closed pane has no place.
struct ZoneSearch {
  std::int32_t Layout = Horizontal;
  PerPane<std::optional<Place>> FolderLists = {};
  std::int16_t LastOpenPane = -1;
  base::Twips ListsTop = 0;
  base::Twips PaneGap = 0;
};

// The zone at that place of the form; edges are inside. Splits go before bars between panes.
ZoneHit FindZone(const ZoneSearch& search, float x, float y);

}  // namespace tarnwell::workspace
