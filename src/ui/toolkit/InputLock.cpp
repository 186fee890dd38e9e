#include "ui/toolkit/InputLock.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <utility>

namespace tarnwell::ui {
namespace {

// The receiver is the window or something in it. Menus and the like hang on it by their parents.
bool IsInside(QObject* receiver, const QWidget* window) {
  if (window == nullptr) return false;
  for (QObject* each = receiver; each != nullptr; each = each->parent()) {
    if (each == window) return true;
  }
  for (auto* each = qobject_cast<QWindow*>(receiver); each != nullptr;
       each = each->transientParent()) {
    if (each == window->windowHandle()) return true;
  }
  return false;
}

// The icon in the notification area, or its menu.
bool IsOfTray(QObject* receiver) {
  const auto* window = qobject_cast<QWindow*>(receiver);
  if (receiver->isWidgetType()) window = static_cast<QWidget*>(receiver)->window()->windowHandle();
  if (window == nullptr) return false;
  while (window->transientParent() != nullptr) window = window->transientParent();
  return window->type() == Qt::Popup || window->flags().testFlag(Qt::BypassWindowManagerHint);
}

// A window that people close: tool-tips and menus come and go by themselves. Closing begins with
// the native window, and only then is the widget in it asked.
bool IsProperWindow(const QWindow* window) {
  return window != nullptr && (window->type() == Qt::Window || window->type() == Qt::Dialog);
}

}  // namespace

InputLock::InputLock(std::function<void()> cancel)
    : cancel_(std::move(cancel)), modalBefore_(QApplication::activeModalWidget()) {
  qApp->installEventFilter(this);
}

InputLock::~InputLock() {
  Release();
  // By the application: the window of a widget hands such a call on to the widget.
  const auto later = [](auto work) {
    QMetaObject::invokeMethod(qApp, std::move(work), Qt::QueuedConnection);
  };
  if (toClose_) {
    later([window = toClose_] {
      if (window) window->close();
    });
  }
  if (toQuit_) later([] { QCoreApplication::quit(); });
}

void InputLock::Release() {
  qApp->removeEventFilter(this);
}

bool InputLock::IsFree(QObject* receiver) const {
  if (IsInside(receiver, allowed_) || IsOfTray(receiver)) return true;
  const QWidget* const modal = QApplication::activeModalWidget();
  return modal != modalBefore_ && modal != allowed_ && IsInside(receiver, modal);
}

void InputLock::BringForward() const {
  if (!allowed_) return;
  allowed_->raise();
  allowed_->activateWindow();
}

bool InputLock::eventFilter(QObject* receiver, QEvent* event) {
  switch (event->type()) {
    case QEvent::Close:
      if (!IsProperWindow(qobject_cast<QWindow*>(receiver)) || IsFree(receiver)) return false;
      event->ignore();
      toClose_ = static_cast<QWindow*>(receiver);
      cancel_();
      return true;
    case QEvent::Quit:
      event->ignore();
      toQuit_ = true;
      cancel_();
      return true;
    case QEvent::KeyPress:
      if (IsFree(receiver)) return false;
      if (!allowed_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) cancel_();
      return true;
    case QEvent::MouseButtonPress:
      if (IsFree(receiver)) return false;
      BringForward();
      return true;
    case QEvent::WindowActivate:
      // The keyboard is of no use there.
      if (receiver->isWidgetType() && !IsFree(receiver)) BringForward();
      return false;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      if (IsFree(receiver)) return false;
      event->ignore();
      return true;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::NativeGesture:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::ContextMenu:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
      return !IsFree(receiver);
    default:
      return false;
  }
}

}  // namespace tarnwell::ui
