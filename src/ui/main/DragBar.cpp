#include "ui/main/DragBar.h"

#include "ui/toolkit/ControlGeometry.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

constexpr Qt::WindowFlags OwnWindow = Qt::ToolTip | Qt::FramelessWindowHint |
                                      Qt::BypassWindowManagerHint | Qt::WindowTransparentForInput |
                                      Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;

}  // namespace

DragBar::DragBar(QWidget& area, bool ownWindow)
    : QWidget(&area, ownWindow ? OwnWindow : Qt::Widget), area_(area) {
  setObjectName(QStringLiteral("DragBar"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_X11NetWmWindowTypeDND);  // the desktop does not fade it in
  setAutoFillBackground(true);
  hide();
}

void DragBar::Sync(const forms::Shape& bar) {
  QRect place = RectOf(bar) & area_.rect();
  const bool shown = bar.Visible && !place.isEmpty() && area_.isVisible();
  if (isWindow()) place.moveTopLeft(area_.mapToGlobal(place.topLeft()));
  const QColor colour = ToQColor(bar.BackColour);
  if (palette().color(QPalette::Window) != colour) setPalette(QPalette(colour));
  if (shown && isHidden() && !isWindow()) raise();
  PlaceAt(*this, place, shown);
}

}  // namespace tarnwell::ui
