// What a row is and how it stands.
#pragma once

#include "lister/rows/Comparison.h"
#include "lister/rows/ItemColours.h"
#include "platform/FileSystem.h"

namespace tarnwell::lister {

// What the widget shows of a row, without its cells.
struct RowState {
  platform::ItemKind Kind = platform::ItemKind::File;
  bool IsLink = false;
  bool IsBroken = false;  // a link that leads nowhere
  bool IsHidden = false;
  bool IsCut = false;        // on the clipboard, to be moved
  bool IsOpen = false;       // the open folder of a folder list
  bool HasChildren = false;  // may be expanded, as far as is known
  bool IsExpanded = false;
  bool IsSelected = false;
  bool IsTarget = false;  // what is dragged would go there, or an open menu is for it
  ItemColour Colour = ItemColour::Default;  // what is to be shown, by the display switch and limit
  CompareMarks Marks = {};
};

}  // namespace tarnwell::lister
