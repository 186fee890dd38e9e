#include "ui/main/FormSurface.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "base/Measure.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/Pointer.h"

namespace tarnwell::ui {
namespace {

float MiddleInTwips(double pixel) {
  return static_cast<float>((std::floor(pixel) + 0.5) * base::TwipsPerPixel);
}

}  // namespace

FormSurface::FormSurface(Actions actions, QWidget* parent)
    : QWidget(parent), actions_(std::move(actions)) {
  setObjectName(QStringLiteral("FormSurface"));
  setAccessibleName(QStringLiteral("Panes"));
  setAutoFillBackground(true);
  setMouseTracking(true);
}

void FormSurface::ShowPointer(forms::MousePointer pointer) {
  const Qt::CursorShape shape = ShapeOf(pointer);
  if (cursor().shape() != shape) setCursor(shape);
}

void FormSurface::ShowShapes(std::vector<Patch> patches, int top, const QColor& line) {
  if (patches == patches_ && top == lineTop_ && line == line_) return;
  patches_ = std::move(patches);
  lineTop_ = top;
  line_ = line;
  update();
}

void FormSurface::Tell(const Teller& teller, const QMouseEvent& event) {
  teller(MiddleInTwips(event.position().x()), MiddleInTwips(event.position().y()));
}

// Controls hand up what they have no use for, too.
bool FormSurface::IsOwnPlace(const QMouseEvent& event) const {
  return childAt(event.position().toPoint()) == nullptr;
}

void FormSurface::mousePressEvent(QMouseEvent* event) {
  if (down_ || event->buttons() != event->button() || !IsOwnPlace(*event)) return;
  Tell(actions_.MouseMove, *event);  // a finger comes down without having moved there
  down_ = true;
  keyboard_ = window()->focusWidget();
  if (keyboard_) keyboard_->installEventFilter(this);
  Tell(actions_.MouseDown, *event);
}

void FormSurface::mouseMoveEvent(QMouseEvent* event) {
  const bool held = event->buttons() != Qt::NoButton;
  if (!held) EndDrag();  // the release has gone elsewhere
  if (down_ || (!held && IsOwnPlace(*event))) Tell(actions_.MouseMove, *event);
}

void FormSurface::mouseReleaseEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) EndDrag();
}

void FormSurface::EndDrag() {
  if (!std::exchange(down_, false)) return;
  if (keyboard_) keyboard_->removeEventFilter(this);
  Guarded([this] { actions_.MouseUp(); });
}

void FormSurface::hideEvent(QHideEvent*) {
  EndDrag();
}

bool FormSurface::eventFilter(QObject* watched, QEvent* event) {
  // Escape is to give up the drag, ahead of any use that a list has for it.
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->ignore();
    return true;
  }
  // A menu that unfolds takes the mouse.
  if (event->type() == QEvent::FocusOut &&
      static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason) {
    EndDrag();
  }
  return QWidget::eventFilter(watched, event);
}

void FormSurface::wheelEvent(QWheelEvent* event) {
  event->accept();
  const QPoint angle = event->angleDelta();
  if (std::abs(angle.x()) > std::abs(angle.y())) return;
  const int notches = wheel_.Add(angle.y());
  for (int count = std::abs(notches); count > 0; --count) {
    actions_.WheelTurned(notches > 0 ? WheelNotches::Angle : -WheelNotches::Angle);
  }
}

void FormSurface::resizeEvent(QResizeEvent*) {
  actions_.Resized();
}

void FormSurface::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (const Patch& patch : patches_) {
    if (patch.Fill.isValid()) painter.fillRect(patch.Place, patch.Fill);
    if (!patch.Frame.isValid()) continue;
    painter.setPen(patch.Frame);
    painter.drawRect(patch.Place.adjusted(0, 0, -1, -1));
  }
  if (line_.isValid()) painter.fillRect(QRect(0, lineTop_, width(), 1), line_);
}

}  // namespace tarnwell::ui
