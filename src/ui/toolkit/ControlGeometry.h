// Gives widgets the places of the controls that they show.
#pragma once

#include <QRect>
#include <QWidget>
#include <cstdint>

#include "forms/Controls.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

// Edges are rounded, not sizes, so that neighbours keep touching.
inline QRect RectOf(const forms::Control& control) {
  const QPoint from(ToPixels(control.Left), ToPixels(control.Top));
  const QPoint to(ToPixels(std::int64_t{control.Left} + control.Width),
                  ToPixels(std::int64_t{control.Top} + control.Height));
  return {from, QSize(to.x() - from.x(), to.y() - from.y())};
}

// Before the first arrangement a control has no place to be shown at.
inline bool IsPlaced(const forms::Control& control) {
  return control.Visible && control.Width > 0 && control.Height > 0;
}

// A widget that is where it should be is not touched.
inline void PlaceAt(QWidget& widget, const QRect& rect, bool visible) {
  if (visible && widget.geometry() != rect) widget.setGeometry(rect);
  if (widget.isHidden() == visible) widget.setVisible(visible);
}

}  // namespace tarnwell::ui
