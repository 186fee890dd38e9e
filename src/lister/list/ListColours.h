// The colours of a list.
#pragma once

#include "base/Colour.h"

namespace tarnwell::lister {

// The colours that a list paints itself with, each named as the property that sets it.
struct ListColours {
  base::Colour ActiveHeading = 0;
  base::Colour ActiveHeadingText = 0;
  base::Colour InactiveHeading = 0;
  base::Colour InactiveHeadingText = 0;
  base::Colour HeadingHoverText = 0;
  base::Colour ProgramBackground = 0;
  base::Colour PaneBackground = 0;
  base::Colour DriveList = 0;
  base::Colour DriveText = 0;
  base::Colour StatusBackground = 0;
  base::Colour StatusText = 0;
  base::Colour MinorToolbar = 0;
  base::Colour ListBackground = 0;
  base::Colour ListText = 0;
  base::Colour ActiveListOutline = 0;
  base::Colour InActiveListOutline = 0;
  base::Colour ActiveItemOutline = 0;
  base::Colour ActiveItemUnderline = 0;
  base::Colour TextSecondary = 0;

  bool operator==(const ListColours&) const = default;
};

}  // namespace tarnwell::lister
