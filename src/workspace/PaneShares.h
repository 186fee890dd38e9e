// What the open panes get of the form: shares by auto expand, and the mending of records that
// nobody could work with.
#pragma once

#include "workspace/PaneRecord.h"

namespace tarnwell::workspace {

// The field that holds a pane's share of the form in a layout.
inline float PaneRecord::*ShareField(std::int32_t layout) {
  return layout == Vertical ? &PaneRecord::PercentWidth : &PaneRecord::PercentHeightH;
}

// Makes records of the layout usable that a settings file may have left: shares of open panes that
// are no numbers or none above 0 become equal ones, and shares that do not add up to the whole are
// scaled to it; a split that leaves its folder list nothing becomes the program's default; control
// groups become each pane's own unless every open pane has one, and that an open pane's.
void SanitizeRecords(PaneRecords& panes, std::int32_t layout);

// The shares by which the open panes of the layout are laid out: their own, but none below `least`
// (0 to 1), for which the others give way. Closed panes have 0.
PerPane<double> ShownShares(const PaneRecords& panes, std::int32_t layout, double least);

// Auto expand: the active pane gets the most of the layout's direction, the other open panes equal
// shares of the rest. An open pane that is alone gets all.
void ExpandPane(PaneRecords& panes, std::int32_t layout, int active);

}  // namespace tarnwell::workspace
