// A bar that shows where a splitter is being dragged to.
//
// Where the platform lets a program place its windows the bar is one of its own: moving it repaints
// nothing under it. Elsewhere it is a child of the area that stays on top of the others.
#pragma once

#include <QWidget>

#include "forms/Controls.h"

namespace tarnwell::ui {

class DragBar : public QWidget {
 public:
  DragBar(QWidget& area, bool ownWindow);

  // Shows the shape as far as it is within the area.
  void Sync(const forms::Shape& bar);

 private:
  QWidget& area_;
};

}  // namespace tarnwell::ui
