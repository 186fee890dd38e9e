#include "ui/toolkit/ShowOver.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace tarnwell::ui {
namespace {

// How many windows it was opened over.
int DepthOf(const QWidget& window) {
  const QWidget* const below = window.parentWidget();
  return below == nullptr ? 0 : 1 + DepthOf(*below->window());
}

}  // namespace

bool IsProperWindow(const QWidget& widget) {
  const Qt::WindowType type = widget.windowType();
  return (type == Qt::Window || type == Qt::Dialog) &&
         !widget.windowFlags().testFlag(Qt::BypassWindowManagerHint);
}

QWidget* WindowInUse() {
  QWidget* const active = QApplication::activeWindow();
  if (active != nullptr && active->isVisible()) return active;
  // For a moment after a modal window has closed none is. Then the one that was opened over the
  // others is meant.
  QWidget* found = nullptr;
  int rank = -1;
  for (QWidget* const each : QApplication::topLevelWidgets()) {
    if (!each->isVisible() || !IsProperWindow(*each)) continue;
    const int own = 2 * DepthOf(*each) + (each->windowType() == Qt::Window ? 1 : 0);
    if (own <= rank) continue;
    rank = own;
    found = each;
  }
  return found;
}

void ShowOver(QWidget& window, QWidget* owner, bool withKeyboard) {
  window.setAttribute(Qt::WA_ShowWithoutActivating, !withKeyboard);
  // Else a modal window that is open already would keep the input from this one.
  if (withKeyboard && QApplication::activeModalWidget() != nullptr) {
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
  if (!withKeyboard) return;
  window.raise();
  window.activateWindow();
}

}  // namespace tarnwell::ui
