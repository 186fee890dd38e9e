// The application object. A failure in an event handler that nothing below has told does not end
// the program; it goes to the terminal. Command keys of any layout reach all below as Latin ones.
#pragma once

#include <QApplication>
#include <exception>

#include "ui/toolkit/LatinKeys.h"

namespace tarnwell::ui {

class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

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
};

}  // namespace tarnwell::ui
