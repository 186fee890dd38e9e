// The colours of a list as its widget paints with them.
#pragma once

#include <QColor>
#include <QPalette>

#include "lister/ListerControl.h"

namespace tarnwell::ui {

struct ListerStyle {
  QPalette List;
  QPalette Drives;
  QPalette Status;
  QColor Outline;  // round the whole list
  QColor Heading;
  QColor HeadingText;
  QColor HeadingHover;
  QColor ItemOutline;  // of the row with the cursor
  QColor ItemUnderline;
  QColor Secondary;  // text of hidden items
};

// The skin's colours, or those of `system` while no skin has given the list any.
ListerStyle MakeListerStyle(const lister::ListerColours& colours, bool active,
                            const QPalette& system);

}  // namespace tarnwell::ui
