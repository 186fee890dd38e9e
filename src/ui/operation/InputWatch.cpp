#include "ui/operation/InputWatch.h"

#include <QCoreApplication>
#include <QEvent>

namespace tarnwell::ui {

InputWatch::InputWatch(const platform::Clock& clock) : clock_(clock), lastAt_(clock.Ticks()) {
  qApp->installEventFilter(this);
}

// Input comes to the native window first, once. A key that is a shortcut never does, but all are
// offered as one to what has the keyboard.
bool InputWatch::eventFilter(QObject* receiver, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool isPress = type == QEvent::KeyPress || type == QEvent::MouseButtonPress ||
                       type == QEvent::MouseButtonDblClick || type == QEvent::TouchBegin;
  if (type == QEvent::ShortcutOverride || (isPress && receiver->isWindowType())) {
    ++count_;
    lastAt_ = clock_.Ticks();
  }
  return false;
}

}  // namespace tarnwell::ui
