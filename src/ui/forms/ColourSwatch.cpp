#include "ui/forms/ColourSwatch.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace tarnwell::ui {
namespace {

// In logical pixels, as all here.
constexpr int SwatchWidth = 64;
constexpr int LeastSwatchHeight = 26;
constexpr int SwatchPadding = 10;  // above and below a line of text, in sum
constexpr int RingWidth = 2;       // of the mark of the keyboard
constexpr int RingGap = 1;         // between the mark and the colour

constexpr int PointerSize = 32;
constexpr QPoint PointerTip(2, 2);

}  // namespace

ColourSwatch::ColourSwatch(const QString& name, QWidget* parent) : QPushButton(parent) {
  setAccessibleName(name);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColourSwatch::ShowColour(const QColor& colour) {
  if (colour == colour_) return;
  colour_ = colour;
  setAccessibleDescription(colour.name());
  setToolTip(colour.name());
  update();
}

QSize ColourSwatch::sizeHint() const {
  return {SwatchWidth, std::max(LeastSwatchHeight, fontMetrics().height() + SwatchPadding)};
}

void ColourSwatch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor ink = palette().color(QPalette::WindowText);
  if (hasFocus()) {
    painter.setPen(QPen(ink, RingWidth));
    painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
  }
  const int edge = RingWidth + RingGap + (isDown() ? 1 : 0);
  const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
  painter.fillRect(inside, colour_);
  painter.setPen(ink);
  painter.drawRect(inside.adjusted(0, 0, -1, -1));
}

QCursor PointerHolding(const QColor& colour, qreal ratio) {
  QPixmap picture(QSize(PointerSize, PointerSize) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, 1));
  painter.setBrush(Qt::black);
  painter.translate(1, 1);
  painter.drawPolygon(
      QPolygonF({{1, 1}, {1, 17}, {5, 13.5}, {7.5, 19}, {10, 18}, {7.5, 12.5}, {12.5, 12.5}}));
  QPainterPath drop(QPointF(21, 8));
  drop.cubicTo(23, 12, 28, 16, 28, 21);
  drop.arcTo(QRectF(14, 14, 14, 14), 0, -180);
  drop.cubicTo(14, 16, 19, 12, 21, 8);
  painter.strokePath(drop, QPen(Qt::white, 4));
  painter.setPen(QPen(Qt::black, 1.5));
  painter.setBrush(colour);
  painter.drawPath(drop);
  painter.end();
  return QCursor(picture, PointerTip.x(), PointerTip.y());
}

}  // namespace tarnwell::ui
