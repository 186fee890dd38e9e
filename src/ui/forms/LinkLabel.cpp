#include "ui/forms/LinkLabel.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

namespace tarnwell::ui {

LinkLabel::LinkLabel(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void LinkLabel::SetTextColour(const QColor& colour) {
  if (std::exchange(textColour_, colour) != colour) update();
}

QSize LinkLabel::sizeHint() const {
  return fontMetrics().size(Qt::TextSingleLine, text()) + 2 * FocusRoom;
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

void LinkLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QFont underlined = font();
  underlined.setUnderline(true);
  painter.setFont(underlined);
  painter.setPen(textColour_);
  painter.drawText(rect(), Qt::AlignCenter, text());
  if (hasFocus()) painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace tarnwell::ui
