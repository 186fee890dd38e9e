// The one application object of the benchmarks of windows, on the platform that needs no screen.
#pragma once

#include <QApplication>

namespace tarnwell::ui {

inline QApplication& BenchApplication() {
  static int count = 1;
  static char name[] = "tarnwell_ui_bench";
  static char* arguments[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication::setStyle(QStringLiteral("Fusion"));
  static auto* const application = new QApplication(count, arguments);
  return *application;
}

// Lets everything happen that is due; what is done may make more so.
inline void PaintWhatIsDue() {
  for (int round = 0; round < 5; ++round) QApplication::processEvents();
}

}  // namespace tarnwell::ui
