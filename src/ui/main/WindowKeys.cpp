#include "ui/main/WindowKeys.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPointer>
#include <utility>

#include "lister/list/ListInput.h"
#include "ui/list/ListerKeys.h"

namespace tarnwell::ui {
namespace {

// Whether or not the toolkit counts a modifier among those held as it comes down.
int ShiftWith(const QKeyEvent& key) {
  const int held = ShiftOf(key.modifiers());
  if (key.key() == Qt::Key_Shift) return held | lister::ShiftDown;
  if (key.key() == Qt::Key_Control) return held | lister::CtrlDown;
  return held;
}

}  // namespace

WindowKeys::WindowKeys(QWidget& window, Actions actions)
    : QObject(&window), window_(window), actions_(std::move(actions)) {
  qApp->installEventFilter(this);
}

bool WindowKeys::eventFilter(QObject* watched, QEvent* event) {
  const bool isDown = event->type() == QEvent::KeyPress;
  // A filter that comes to the application while a key is being acted on takes the first place
  // among them, and so this one gets the same key once more.
  if (isDown && event == done_) return false;
  done_ = nullptr;
  const bool isFocusIn = event->type() == QEvent::FocusIn;
  if (!isDown && !isFocusIn && event->type() != QEvent::KeyRelease) return false;
  // A key that a widget leaves alone comes by again on its way up.
  const QWidget* const focus = QApplication::focusWidget();
  if (focus == nullptr || watched != focus || focus->window() != &window_) return false;
  if (isFocusIn) {
    const auto reason = static_cast<const QFocusEvent*>(event)->reason();
    if (reason == Qt::PopupFocusReason) actions_.Back();
    return false;
  }
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (!isDown) {
    if (!key.isAutoRepeat()) actions_.Up();
  } else if (actions_.IsFormKey(focus)) {
    const QPointer<WindowKeys> alive(this);
    actions_.Down(KeyCodeOf(key), ShiftWith(key));
    if (alive) done_ = event;
  }
  return false;
}

void PressMenuKey(QWidget* focus) {
  if (focus == nullptr) return;
  const QPoint place = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
  QCoreApplication::sendEvent(focus, &event);
}

}  // namespace tarnwell::ui
