// Where the controls of the open panes go.
#pragma once

#include <array>
#include <cstdint>

#include "base/Measure.h"
#include "lister/ListId.h"
#include "workspace/PaneRecord.h"

namespace tarnwell::workspace {

// All in twips.
struct ArrangeMeasures {
  std::int32_t Layout = Horizontal;
  base::Twips InsideWidth = 0;
  base::Twips InsideHeight = 0;
  base::Twips ToolbarBottom = 0;
  base::Twips TitleHeight = 0;
  base::Twips TitlePictureWidth = 0;  // of cmdTitle and of cmdClosePane
  base::Twips PaneGap = 0;
};

struct Place {
  base::Twips Left = 0;
  base::Twips Top = 0;
  base::Twips Width = 0;
  base::Twips Height = 0;
};

struct PanePlaces {
  Place Back;  // the whole pane
  Place Title;
  Place TitlePicture;
  Place ClosePicture;
  Place FolderList;
  Place FileList;
};

// The places of the open panes, by their shares: columns or rows in pane order that fill the inside
// of the form below the toolbar. A share that makes no sense counts as an equal one. Closed
// panes get empty places.
std::array<PanePlaces, lister::PaneCount> ArrangePanes(const PaneRecords& panes,
                                                       const ArrangeMeasures& measures);

}  // namespace tarnwell::workspace
