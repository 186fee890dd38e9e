#include "ui/forms/CategoryLabel.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

namespace tarnwell::ui {
namespace {

// Logical pixels.
constexpr int ChosenBar = 3;  // at the left edge of the label that is chosen
constexpr int TextLeft = 11;
constexpr int TextRight = 16;
constexpr int TextMargin = 6;  // above and below

}  // namespace

CategoryLabel::CategoryLabel(std::function<void()> hovered, QWidget* parent)
    : QRadioButton(parent), hovered_(std::move(hovered)) {
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void CategoryLabel::SetTextColour(const QColor& colour) {
  if (std::exchange(textColour_, colour) != colour) update();
}

QSize CategoryLabel::sizeHint() const {
  const QSize shown = fontMetrics().size(Qt::TextShowMnemonic, text());
  return shown + QSize(TextLeft + TextRight, 2 * TextMargin);
}

void CategoryLabel::mouseMoveEvent(QMouseEvent* event) {
  QRadioButton::mouseMoveEvent(event);
  event->accept();  // else it goes on to the sheet below
  hovered_();
}

// Enter is the dialog's, but for a label that has yet to be chosen.
void CategoryLabel::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && !isChecked()) return click();
  QRadioButton::keyPressEvent(event);
}

void CategoryLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (isChecked()) painter.fillRect(0, 0, ChosenBar, height(), textColour_);
  painter.setPen(textColour_);
  painter.drawText(rect().adjusted(TextLeft, 0, 0, 0),
                   Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, text());
  if (!hasFocus()) return;
  painter.setPen(textColour_);
  painter.drawRect(rect().adjusted(ChosenBar + 2, 1, -3, -2));
}

}  // namespace tarnwell::ui
