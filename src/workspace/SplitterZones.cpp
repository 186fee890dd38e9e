#include "workspace/SplitterZones.h"

namespace tarnwell::workspace {
namespace {

// Beside the titles the bars between columns cannot be taken hold of.
constexpr base::Twips BesideTitles = 300;

bool IsWithin(float value, base::Twips from, base::Twips to) {
  return value >= static_cast<float>(from) && value <= static_cast<float>(to);
}

bool IsOnSplit(const ZoneSearch& search, const Place& list, float x, float y) {
  if (search.Layout == Vertical) {
    return IsWithin(x, list.Left, list.Right()) &&
           IsWithin(y, list.Bottom(), list.Bottom() + search.PaneGap);
  }
  return IsWithin(y, list.Top, list.Bottom()) &&
         IsWithin(x, list.Right(), list.Right() + search.PaneGap);
}

bool IsOnBar(const ZoneSearch& search, const Place& list, float x, float y) {
  if (search.Layout == Vertical) {
    return IsWithin(x, list.Right(), list.Right() + search.PaneGap) &&
           y > static_cast<float>(search.ListsTop + BesideTitles);
  }
  return IsWithin(y, list.Bottom(), list.Bottom() + search.PaneGap);
}

}  // namespace

ZoneHit FindZone(const ZoneSearch& search, float x, float y) {
  using forms::MousePointer;
  const bool isVertical = search.Layout == Vertical;
  for (std::int16_t pane = 0; pane < lister::PaneCount; ++pane) {
    const auto& list = search.FolderLists[pane];
    if (!list || !IsOnSplit(search, *list, x, y)) continue;
    return isVertical ? ZoneHit{MouseZone::ResizeNSVertical, MousePointer::NorthSouth, pane}
                      : ZoneHit{MouseZone::ResizeWEHorizontal, MousePointer::WestEast, pane};
  }
  for (std::int16_t pane = 0; pane < lister::PaneCount; ++pane) {
    const auto& list = search.FolderLists[pane];
    if (pane == search.LastOpenPane || !list || !IsOnBar(search, *list, x, y)) continue;
    return isVertical ? ZoneHit{MouseZone::ResizeWEVertical, MousePointer::WestEast, pane}
                      : ZoneHit{MouseZone::ResizeNSHorizontal, MousePointer::NorthSouth, pane};
  }
  return {};
}

}  // namespace tarnwell::workspace
