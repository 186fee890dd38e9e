#include "ui/NoRoomLabel.h"

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
  int flags = Qt::AlignCenter | Qt::TextWordWrap;
  QFont smaller = font();
  for (double factor = 1;; factor -= FontStep) {
    smaller.setPointSizeF(font().pointSizeF() * factor);
    painter.setFont(smaller);
    if (rect().contains(painter.boundingRect(rect(), flags, text()))) break;
    if (factor > SmallestFont) continue;
    flags |= Qt::TextWrapAnywhere;
    break;
  }
  painter.drawText(rect(), flags, text());
}

}  // namespace tarnwell::ui
