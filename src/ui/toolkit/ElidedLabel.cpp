#include "ui/toolkit/ElidedLabel.h"

#include <QEvent>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

void ElidedLabel::ShowText(const QString& text) {
  if (text == whole_) return;
  whole_ = text;
  setAccessibleName(text);
  Elide();
}

void ElidedLabel::Elide() {
  const QString fitting = fontMetrics().elidedText(whole_, Qt::ElideMiddle, width());
  setText(fitting);
  setToolTip(fitting == whole_ ? QString() : PlainToolTip(whole_));
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Elide();
}

void ElidedLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) Elide();
}

}  // namespace tarnwell::ui
