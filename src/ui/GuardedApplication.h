// The application object. A failure in an event handler that nothing below has told does not end
// the program; it goes to the terminal.
#pragma once

#include <QApplication>
#include <exception>

namespace tarnwell::ui {

class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
      qWarning("tarnwell: %s", error.what());
      return false;
    }
  }
};

}  // namespace tarnwell::ui
