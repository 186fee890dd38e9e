#include "ui/main/OtherWindows.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>
#include <utility>

#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {

OtherWindows::OtherWindows(QWidget& main, std::function<void()> bringBack)
    : QObject(&main), main_(main), bringBack_(std::move(bringBack)) {}

bool OtherWindows::IsOther(const QWidget& widget) const {
  return &widget != &main_ && IsProperWindow(widget);
}

void OtherWindows::Hide() {
  for (QWidget* const each : QApplication::topLevelWidgets()) {
    if (!each->isVisible() || !IsOther(*each)) continue;
    hidden_.emplace_back(each);
    each->hide();
  }
}

void OtherWindows::Show() {
  for (const QPointer<QWidget>& each : std::exchange(hidden_, {})) {
    if (!each) continue;
    // The window manager has minimised it with the main window.
    each->setWindowState(each->windowState() & ~Qt::WindowMinimized);
    each->show();
  }
}

void OtherWindows::Watch(bool on) {
  on ? qApp->installEventFilter(this) : qApp->removeEventFilter(this);
}

// The event comes before the window is on the screen, so the main window is there first.
bool OtherWindows::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::Show || !receiver->isWidgetType()) return false;
  const auto& widget = static_cast<const QWidget&>(*receiver);
  if (!IsOther(widget)) return false;
  bringBack_();
  QWindow* const window = widget.windowHandle();
  if (window != nullptr && window->transientParent() == nullptr) {
    window->setTransientParent(main_.windowHandle());
  }
  return false;
}

}  // namespace tarnwell::ui
