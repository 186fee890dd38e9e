#include "ui/toolkit/ShowOver.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace tarnwell::ui {

QWidget* WindowInUse() {
  // One that has just been closed counts as active until the desktop says otherwise.
  for (QWidget* each = QApplication::activeWindow(); each != nullptr; each = each->parentWidget()) {
    if (each->isWindow() && each->isVisible()) return each;
  }
  for (QWidget* const each : QApplication::topLevelWidgets()) {
    if (each->isVisible() && each->windowType() == Qt::Window) return each;
  }
  return nullptr;
}

void ShowOver(QWidget& window, QWidget* owner) {
  // Else a modal window that is open already would keep the input from this one.
  if (QApplication::activeModalWidget() != nullptr) {
    window.setWindowModality(Qt::ApplicationModal);
  }
  window.ensurePolished();
  window.adjustSize();
  window.winId();  // makes the native window
  if (owner != nullptr) window.windowHandle()->setTransientParent(owner->windowHandle());
  const QRect room = (owner != nullptr ? owner : &window)->screen()->availableGeometry();
  const QRect around = owner != nullptr ? owner->frameGeometry() : room;
  const QSize size = window.size();
  const QPoint place = around.center() - QPoint(size.width() / 2, size.height() / 2);
  window.move(
      std::clamp(place.x(), room.left(), std::max(room.left(), room.right() + 1 - size.width())),
      std::clamp(place.y(), room.top(), std::max(room.top(), room.bottom() + 1 - size.height())));
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace tarnwell::ui
