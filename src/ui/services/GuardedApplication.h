// The application object. A failure in an event handler that nothing below has told does not end
// the program; it goes to the terminal. Command keys of any layout reach all below as Latin ones.
#pragma once

#include <QApplication>
#include <exception>
#include <functional>

#include "ui/toolkit/LatinKeys.h"

namespace tarnwell::ui {

class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  // Asked, unless empty, before all windows are closed and the loop ends, as when the session does:
  // false keeps the program for now.
  std::function<bool()> MayQuit;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      const QEvent::Type type = event->type();
      if (type == QEvent::KeyPress || type == QEvent::KeyRelease ||
          type == QEvent::ShortcutOverride) {
        if (const auto latin = LatinKeyEvent(*static_cast<QKeyEvent*>(event))) {
          const bool done = QApplication::notify(receiver, latin.get());
          event->setAccepted(latin->isAccepted());
          return done;
        }
      }
      return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
      qWarning("tarnwell: %s", error.what());
      return false;
    }
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Quit || !MayQuit || MayQuit()) return QApplication::event(event);
    event->ignore();
    return true;
  }
};

}  // namespace tarnwell::ui
