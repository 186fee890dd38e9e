#include "ui/main/NoRoomLabel.h"

#include <QFontMetrics>
#include <QPainter>

namespace tarnwell::ui {
namespace {

constexpr double SmallestFont = 0.7;  // of the usual one
constexpr double FontStep = 0.05;

}  // namespace

NoRoomLabel::NoRoomLabel(QWidget* parent) : QLabel(parent) {
  setAutoFillBackground(true);
  setAttribute(Qt::WA_TransparentForMouseEvents);  // the form's own surface, as far as that goes
}

void NoRoomLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QFont smaller = font();
  for (double factor = 1; factor >= SmallestFont; factor -= FontStep) {
    smaller.setPointSizeF(font().pointSizeF() * factor);
    painter.setFont(smaller);
    constexpr int flags = Qt::AlignCenter | Qt::TextWordWrap;
    if (!rect().contains(painter.boundingRect(rect(), flags, text()))) continue;
    painter.drawText(rect(), flags, text());
    return;
  }
  const QFontMetrics metrics = painter.fontMetrics();
  if (metrics.height() > height()) return;
  painter.drawText(rect(), Qt::AlignCenter, metrics.elidedText(text(), Qt::ElideRight, width()));
}

}  // namespace tarnwell::ui
