// The pointer shapes that the program asks for, as Qt's.
#pragma once

#include <QCursor>

#include "forms/Controls.h"

namespace tarnwell::ui {

inline Qt::CursorShape ShapeOf(forms::MousePointer pointer) {
  switch (pointer) {
    case forms::MousePointer::NorthSouth:
      return Qt::SizeVerCursor;
    case forms::MousePointer::WestEast:
      return Qt::SizeHorCursor;
    case forms::MousePointer::Hourglass:
      return Qt::WaitCursor;
    default:
      return Qt::ArrowCursor;
  }
}

}  // namespace tarnwell::ui
