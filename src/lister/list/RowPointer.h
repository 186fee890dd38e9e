// Where the mouse is in a list, and what it is at.
#pragma once

#include "lister/list/ListerEvents.h"
#include "lister/rows/ListerView.h"

namespace tarnwell::lister {

// Which part of a row the mouse is on.
enum class RowPart {
  None,    // below the last row
  Branch,  // left of the icon, in a folder list: the widget opens and closes branches there
  Gap,     // the small space between icon and name, where the arrow of a selected item stands
  Item,    // icon or name
  Rest,    // the row's other cells and the space behind the name
};

// The mouse over a list.
struct RowPointer {
  RowId Row = NoRow;  // NoRow where Part is None
  // Of the row in the height of the pointer, also where the pointer is beside the list: -1 above
  // the first row, the number of rows below the last.
  int Position = -1;
  RowPart Part = RowPart::None;
  MouseEvent Event;
};

// What goes on while a mouse button is down.
enum class MouseAction {
  None,
  Sweep,  // selecting by the gap
  Band,   // selecting by a frame that is drawn over the rows
  Drag,   // what is selected is being dragged
};

}  // namespace tarnwell::lister
