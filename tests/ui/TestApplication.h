// The one application object of a test program of windows, on the platform that needs no screen.
#pragma once

#include <QApplication>

namespace tarnwell::ui {

inline QApplication& TestApplication() {
  static int count = 1;
  static char name[] = "ui_tests";
  static char* arguments[] = {name, nullptr};
  // Never deleted: statics of Qt may go before it.
  static QApplication* application = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return new QApplication(count, arguments);
  }();
  return *application;
}

}  // namespace tarnwell::ui
