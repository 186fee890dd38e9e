// The one application object of a test program of windows, on the platform that needs no screen.
#pragma once

#include <QtWidgets>

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

// Lets everything happen that is due, but no time pass.
inline void Settle() {
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

inline void PressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                     const QString& text = {}, bool repeated = false) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text, repeated);
  QApplication::sendEvent(&widget, &press);
}

inline void SendMouse(QWidget& widget, QEvent::Type type, QPoint place,
                      Qt::MouseButton button = Qt::LeftButton, bool held = true) {
  const bool moves = type == QEvent::MouseMove, ends = type == QEvent::MouseButtonRelease;
  QMouseEvent event(type, place, widget.mapToGlobal(place), moves ? Qt::NoButton : button,
                    ends || !held ? Qt::NoButton : button, {});
  QApplication::sendEvent(&widget, &event);
}

inline void TurnWheel(QWidget& widget, int angle) {
  QWheelEvent wheel({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, angle}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &wheel);
}

// The button of that caption, without its mark of the access key; null when there is none.
inline QPushButton* ButtonOf(const QWidget& window, const QString& caption) {
  for (QPushButton* const each : window.findChildren<QPushButton*>()) {
    if (each->text().remove('&') == caption && !each->isHidden()) return each;
  }
  return nullptr;
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
