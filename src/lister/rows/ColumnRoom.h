// How the columns of a list share the room that it has. A pure rule.
#pragma once

#include <array>

#include "base/Measure.h"
#include "lister/rows/Headings.h"

namespace tarnwell::lister {

// Widths by HeadingId, 0 for headings that are not shown; whole pixels.
using ColumnWidths = std::array<base::Twips, HeadingCount>;

// The widths of the columns in a list that has `room` twips for them. They are the user's once he
// has sized a heading. Until then the name takes what the others leave, and shares with the path of
// what was found. Where that is little the others give way, one after the other and no further than
// needed: first the extension, then other texts, then the dates, which drop their seconds. Then the
// name becomes narrower, and last sizes and dates once more; what goes beyond the room is for the
// user to scroll to.
ColumnWidths WidthsIn(const Headings& table, base::Twips room);

}  // namespace tarnwell::lister
