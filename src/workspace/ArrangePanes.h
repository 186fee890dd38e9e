// Where the controls of the main form go: the arrangement of the open panes as columns or rows.
//
// Works out places; moves nothing and knows no list. The same records and measures give the same
// places, and the records that come out give them again.
#pragma once

#include <cstdint>

#include "base/Measure.h"
#include "workspace/PaneRecord.h"

namespace tarnwell::workspace {

struct Place {
  base::Twips Left = 0;
  base::Twips Top = 0;
  base::Twips Width = 0;
  base::Twips Height = 0;

  base::Twips Right() const { return Left + Width; }
  base::Twips Bottom() const { return Top + Height; }
};

// The splitter at a place of the form. North-south and west-east is how it can be dragged.
enum class MouseZone {
  Nowhere,
  ResizeNSVertical,    // of columns: between the two lists of a pane
  ResizeWEVertical,    // of columns: between two panes
  ResizeWEHorizontal,  // of rows: between the two lists of a pane
  ResizeNSHorizontal,  // of rows: between two panes
};

// What an arrangement is made from, in twips.
struct FormMeasures {
  std::int32_t Layout = Horizontal;
  base::Twips InsideWidth = 0;
  base::Twips InsideHeight = 0;
  base::Twips ToolbarTop = 0;
  base::Twips ToolbarHeight = 0;
  base::Twips TitleHeight = 0;
  base::Twips TitlePictureWidth = 0;
  base::Twips ClosePictureWidth = 0;
  base::Twips PaneGap = 0;
  base::Twips CommandStripHeight = 0;
  bool CommandOn = false;  // the command line is shown
};

// The room that an arrangement found, in twips. Kept until the next one.
struct WorkArea {
  base::Twips TitleTop = 0;      // top of the first row
  base::Twips CommandGap = 0;    // kept free under the panes
  base::Twips AreaWidth = 0;     // inside width of the form
  base::Twips RowsHeight = 0;    // inside height less toolbar and command line
  base::Twips ColumnHeight = 0;  // RowsHeight less a title and a gap
  base::Twips ListsTop = 0;      // bottom of the toolbar and a title below it
  std::int16_t FirstOpenPane = -1;
  std::int16_t LastOpenPane = -1;
};

struct ListPlaces {
  Place List;
  Place PlaceHolder;  // where the list would be, when it has no room
  Place NoRoom;       // the words in it
};

struct PanePlaces {
  ListPlaces Folders;
  ListPlaces Files;
  Place Title;         // the height is not arranged: 0
  Place TitlePicture;  // left and top alone
  Place ClosePicture;  // left and top alone
  Place Back;          // outline round the whole pane
};

struct Arrangement {
  bool IsPlaced = false;  // false: there is no room, and everything stays where it is
  WorkArea Area;
  PaneRecords Panes;  // with shares, splits, sizes and places brought up to date
  // By the number of the pane whose controls they are; of closed panes nothing.
  PerPane<PanePlaces> Places;
  Place LineHorz2;    // left and width alone
  Place LineVert2;    // top and height alone
  Place CurrentPath;  // txtCurrentPath; the height is not arranged. Only with the command line
  Place Command;      // cboCommand, the same
};

// The places of the open panes, by their shares (PercentWidth of columns, PercentHeightH of rows)
// and by the split inside each (Height of columns, WidthH of rows). Records from a damaged file
// are mended first, see PaneShares.h, so that no pane is out of reach and none overlaps another.
Arrangement ArrangePanes2(const PaneRecords& panes, const FormMeasures& measures);

}  // namespace tarnwell::workspace
