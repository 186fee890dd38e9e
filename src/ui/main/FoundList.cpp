#include "ui/main/FoundList.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QShortcut>

#include "ui/main/WindowKeys.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

FoundList::FoundList(shell::Master& master, const IconSource& icons, QDialog& window,
                     QMainWindow& main)
    : ListerWidget(master.Space().Lists.Found(), icons, &window),
      control_(master.Space().Lists.Found()),
      main_(main) {
  new WindowKeys(window,
                 {.Down = [&master](int code, int shift) { master.FoundListKeyDown(code, shift); },
                  .Up = [&master] { master.KeyUp(); },
                  .Back = [&master] { master.Activated(); },
                  .IsFormKey = [this](const QWidget* focus) { return focus == focusProxy(); }});
  const auto bind = [&](const QKeySequence& key, auto act) {
    connect(new QShortcut(key, &window), &QShortcut::activated, this, act);
  };
  bind(QKeySequence::Find, [this] { EnterControls(); });
  bind(Qt::SHIFT | Qt::Key_F10, [&window] { PressMenuKey(window.focusWidget()); });
  // A click, and the key for the menu, come after these.
  focusProxy()->installEventFilter(this);
  static_cast<QAbstractScrollArea*>(focusProxy())->viewport()->installEventFilter(this);
}

bool FoundList::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::MouseButtonPress || type == QEvent::ContextMenu) NotePlace();
  return ListerWidget::eventFilter(watched, event);
}

void FoundList::NotePlace() {
  const QPoint place = main_.centralWidget()->mapFromGlobal(mapToGlobal(QPoint()));
  control_.Left = ToTwips(place.x());
  control_.Top = ToTwips(place.y());
}

}  // namespace tarnwell::ui
