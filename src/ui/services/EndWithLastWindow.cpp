#include "ui/services/EndWithLastWindow.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>

#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {
namespace {

void EndIfNoWindow() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  const bool anyShown = std::ranges::any_of(
      windows, [](const QWidget* each) { return each->isVisible() && IsProperWindow(*each); });
  if (!anyShown) QCoreApplication::exit();
}

// To Qt the last window is one that was closed, not one that hides.
class LastWindow : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::Hide && receiver->isWidgetType()) {
      QMetaObject::invokeMethod(this, EndIfNoWindow, Qt::QueuedConnection);
    }
    return false;
  }
};

}  // namespace

void EndWithLastWindow() {
  qApp->installEventFilter(new LastWindow(qApp));
  EndIfNoWindow();
}

}  // namespace tarnwell::ui
