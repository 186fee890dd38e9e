#include "ui/main/FocusKeeper.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace tarnwell::ui {
namespace {

bool IsTyping(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::InputMethodQuery:
    case QEvent::ContextMenu:
      return true;
    default:
      return false;
  }
}

}  // namespace

FocusKeeper::FocusKeeper(std::function<QWidget*()> typist, QWidget* parent)
    : QWidget(parent), typist_(std::move(typist)) {
  setAccessibleName(QStringLiteral("Keyboard"));
  setAttribute(Qt::WA_InputMethodEnabled);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setGeometry(-1, -1, 1, 1);
}

bool FocusKeeper::event(QEvent* event) {
  QWidget* const typist = IsTyping(event->type()) ? typist_() : nullptr;
  if (typist == nullptr) return QWidget::event(event);
  QCoreApplication::sendEvent(typist, event);
  // What the typist leaves alone has gone on to the window already, by way of its parents.
  if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) event->accept();
  return true;
}

}  // namespace tarnwell::ui
