#include "ui/toolkit/ScrollAccess.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAccessibleWidget>

namespace tarnwell::ui {
namespace {

// Asked once for each class that the object is of, beginning with the last that was derived: what
// scrolls and is something more has been found before.
QAccessibleInterface* MakeScrollAccess(const QString& type, QObject* object) {
  if (type != QLatin1String("QScrollArea") && type != QLatin1String("QAbstractScrollArea")) {
    return nullptr;
  }
  // Its parts are all of its children, whether they are to be seen or not.
  auto* const area = qobject_cast<QAbstractScrollArea*>(object);
  return area != nullptr ? new QAccessibleWidget(area, QAccessible::Client) : nullptr;
}

}  // namespace

void TellOfScrollAreas() {
  QAccessible::installFactory(&MakeScrollAccess);
}

}  // namespace tarnwell::ui
