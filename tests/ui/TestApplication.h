// The one application object of a test program of windows, on the platform that needs no screen.
#pragma once

#include <QApplication>
#include <QFont>

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

// Large letters everywhere, until it goes.
struct LargeFont {
  explicit LargeFont(int points) {
    QFont large = Usual;
    large.setPointSize(points);
    QApplication::setFont(large);
  }
  ~LargeFont() { QApplication::setFont(Usual); }
  const QFont Usual = QApplication::font();
};

}  // namespace tarnwell::ui
