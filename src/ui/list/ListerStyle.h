// The colours of a list as its widget paints with them.
#pragma once

#include <QColor>
#include <QPalette>
#include <array>

#include "lister/list/ListColours.h"
#include "lister/rows/ItemColours.h"

namespace tarnwell::ui {

// The colours of a row in one of its states.
struct RowColours {
  QColor Fill;
  QColor Text;
  QColor Secondary;  // cells beside the name, and hidden items
};

struct ListerStyle {
  QPalette List;
  QPalette Drives;
  QPalette Toolbar;
  QPalette Status;
  QPalette ScrollBars;
  QColor Pane;     // what shows between the parts of the list
  QColor Outline;  // round the whole list
  QColor Heading;
  QColor HeadingText;
  QColor HeadingHover;
  QColor ItemOutline;  // of the row with the cursor, of the frame that selects
  QColor ItemUnderline;
  QColor Arrow{};  // of a selected item
  // Of badges on the status line: as on rows, as far as they can be told from it.
  QColor LegendMore{};
  QColor LegendLess{};
  RowColours Plain{};
  RowColours Hovered{};
  RowColours Selected{};
  // By lister::ItemColour: the bar of an item that is coded with the colour, which can be told from
  // the list's background, and what lies behind its name.
  std::array<QColor, lister::ItemColours.size()> Bars{};
  std::array<QColor, lister::ItemColours.size()> Tints{};

  const RowColours& ColoursOf(bool selected, bool hovered) const {
    return selected ? Selected : hovered ? Hovered : Plain;
  }
};

// The skin's colours, or those of `system` while no skin has given the list any.
ListerStyle MakeListerStyle(const lister::ListColours& colours, bool active,
                            const QPalette& system);

}  // namespace tarnwell::ui
