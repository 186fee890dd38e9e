#include "ui/list/ListerEmblems.h"

#include <QColor>
#include <QPen>
#include <QPointF>
#include <QRectF>

namespace tarnwell::ui {
namespace {

constexpr QColor EmblemPaper(255, 255, 255);
constexpr QColor EmblemEdge(90, 96, 104);
constexpr QColor EmblemArrow(20, 78, 150);
constexpr QColor EmblemBroken(178, 24, 24);

}  // namespace

void PaintLinkEmblem(QPainter& painter, const QRect& icon, bool isBroken) {
  // Nine sixteenths of the icon, in its lower left corner.
  const double side = icon.width() * 9 / 16.0;
  const QRectF place(icon.left() - 1, icon.bottom() + 2 - side, side, side);
  const double unit = side / 9;
  const auto at = [&](double x, double y) {
    return QPointF(place.left() + x * unit, place.top() + y * unit);
  };
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(isBroken ? EmblemBroken : EmblemEdge, unit));
  painter.setBrush(isBroken ? EmblemBroken : EmblemPaper);
  painter.drawRoundedRect(place.adjusted(unit / 2, unit / 2, -unit / 2, -unit / 2), unit, unit);
  painter.setPen(QPen(isBroken ? EmblemPaper : EmblemArrow, 1.4 * unit));
  painter.setBrush(Qt::NoBrush);
  if (isBroken) {
    painter.drawLine(at(2.7, 2.7), at(6.3, 6.3));
    painter.drawLine(at(6.3, 2.7), at(2.7, 6.3));
  } else {
    painter.drawLine(at(2.6, 6.4), at(6.2, 2.8));
    painter.drawPolyline(QPolygonF{at(3.4, 2.6), at(6.4, 2.6), at(6.4, 5.6)});
  }
  painter.restore();
}

}  // namespace tarnwell::ui
