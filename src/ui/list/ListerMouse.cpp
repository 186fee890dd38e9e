#include "ui/list/ListerMouse.h"

#include <QApplication>
#include <QCursor>
#include <QHeaderView>
#include <algorithm>

#include "ui/list/ListerDelegate.h"
#include "ui/list/ListerKeys.h"
#include "ui/list/ListerModel.h"
#include "ui/list/ListerRow.h"
#include "ui/list/ListerTree.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

using lister::RowPart;

namespace {

constexpr int SelectScrollInterval = 50;  // milliseconds

int ButtonOf(Qt::MouseButton button) {
  return button == Qt::LeftButton     ? 1
         : button == Qt::RightButton  ? 2
         : button == Qt::MiddleButton ? 4
                                      : 0;
}

}  // namespace

ListerMouse::ListerMouse(ListerTree& tree, const lister::ListInput& input, bool fileList)
    : QObject(&tree), tree_(tree), input_(input), fileList_(fileList) {
  scroll_.setInterval(SelectScrollInterval);
  connect(&scroll_, &QTimer::timeout, this, &ListerMouse::ScrollAlong);
}

void ListerMouse::Press(const QMouseEvent& event) {
  if (ButtonOf(event.button()) == 0) return;
  // A further button changes nothing, unless the release of the first one went elsewhere.
  if (IsDown() && event.button() != button_ && event.buttons().testFlag(button_)) return;
  button_ = event.button();
  moved_ = false;
  pressedAt_ = last_ = event.position().toPoint();
  began_ = pressedAt_ + tree_.Scrolled();
  modifiers_ = event.modifiers();
  emit Pressed(ReportAt(pressedAt_, ButtonOf(button_), modifiers_));
}

void ListerMouse::Move(const QMouseEvent& event) {
  last_ = event.position().toPoint();
  modifiers_ = event.modifiers();
  if (IsDown() && !event.buttons().testFlag(button_)) End();  // a menu took the release
  if (!IsDown()) {
    pointer_ = last_;
    emit Hovered();
    return;
  }
  const bool far = (last_ - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
  moved_ = moved_ || far;
  if (!moved_) return;
  const bool beside = last_.y() < 0 || last_.y() >= tree_.viewport()->height();
  if (!beside) {
    scroll_.stop();
  } else if (!scroll_.isActive()) {
    scroll_.start();
  }
  ReportMove();
}

void ListerMouse::ReportMove() {
  emit Moved(ReportAt(last_, ButtonOf(button_), modifiers_));
}

void ListerMouse::ScrollAlong() {
  const auto action = input_.Action();
  if (!IsDown() || (action != lister::MouseAction::Sweep && action != lister::MouseAction::Band)) {
    return;
  }
  const int height = tree_.viewport()->height();
  const int beyond = last_.y() < 0 ? last_.y() : std::max(0, last_.y() - height + 1);
  if (beyond == 0) return;
  const int rows = 1 + std::abs(beyond) / (2 * tree_.RowHeight());
  tree_.ScrollRows(beyond < 0 ? -rows : rows);
  ReportMove();
}

void ListerMouse::Release(const QMouseEvent& event) {
  if (event.button() != button_ || !IsDown()) return;
  last_ = event.position().toPoint();
  modifiers_ = event.modifiers();
  End();
}

void ListerMouse::End() {
  scroll_.stop();
  const int button = ButtonOf(button_);
  button_ = Qt::NoButton;
  pointer_ = tree_.viewport()->rect().contains(last_) ? std::optional(last_) : std::nullopt;
  emit Released(ReportAt(last_, button, modifiers_));
  emit Hovered();
}

void ListerMouse::DoubleClick(const QMouseEvent& event) {
  const PointerReport report =
      ReportAt(event.position().toPoint(), ButtonOf(event.button()), event.modifiers());
  const bool opens = event.button() == Qt::LeftButton && report.At.Event.Shift == 0 &&
                     (report.At.Part == RowPart::Item || report.At.Part == RowPart::Rest);
  if (opens) {
    emit DoubleClicked(report);
  } else {
    Press(event);  // each click in the gap is one of its own
  }
}

void ListerMouse::PressMenuKey() {
  const QModelIndex current = tree_.currentIndex().siblingAtColumn(0);
  const QRect name = tree_.NameCellOf(current);
  PointerReport report =
      ReportAt(name.bottomLeft() + QPoint(tree_.iconSize().width(), 0), 2, Qt::NoModifier);
  report.Row = current;
  report.At.Row = current.isValid() ? ListerModel::RowOf(current) : lister::NoRow;
  report.At.Position = current.isValid() ? current.row() : -1;
  report.At.Part = current.isValid() ? RowPart::Item : RowPart::None;
  emit Pressed(report);
  emit Released(report);
}

void ListerMouse::Leave() {
  pointer_.reset();
  emit Hovered();
}

void ListerMouse::CatchRelease() {
  if (!IsDown() || QGuiApplication::mouseButtons().testFlag(button_)) return;
  last_ = tree_.viewport()->mapFromGlobal(QCursor::pos());
  modifiers_ = QGuiApplication::queryKeyboardModifiers();
  End();
}

void ListerMouse::Forget() {
  scroll_.stop();
  button_ = Qt::NoButton;
}

QRect ListerMouse::Band() const {
  const QPoint from = began_ - tree_.Scrolled();
  return QRect(QPoint(std::min(from.x(), last_.x()), std::min(from.y(), last_.y())),
               QPoint(std::max(from.x(), last_.x()), std::max(from.y(), last_.y())));
}

PointerReport ListerMouse::ReportAt(const QPoint& place, int button,
                                    Qt::KeyboardModifiers modifiers) const {
  const QPoint inList = tree_.viewport()->mapTo(tree_.parentWidget(), place);
  PointerReport report;
  report.At.Event = {.Button = button,
                     .Shift = ShiftOf(modifiers),
                     .X = static_cast<float>(ToTwips(inList.x())),
                     .Y = static_cast<float>(ToTwips(inList.y()))};
  const QModelIndex row = tree_.RowAt(place.y());
  report.At.Position = tree_.PositionAt(place.y());
  report.At.Part = PartAt(place, row);
  if (report.At.Part == RowPart::None) return report;
  report.Row = row;
  report.At.Row = ListerModel::RowOf(row);
  return report;
}

RowPart ListerMouse::PartAt(const QPoint& place, const QModelIndex& row) const {
  if (!row.isValid()) return RowPart::None;
  const QRect cell = tree_.NameCellOf(row);
  if (tree_.IsBranch(place, row)) return RowPart::Branch;
  if (place.x() < cell.left() || place.x() > cell.right()) return RowPart::Rest;
  const NameCell parts = PartsOfName(cell, tree_.iconSize().width(), fileList_);
  if (place.x() < parts.Gap.left()) return RowPart::Item;
  if (place.x() <= parts.Gap.right()) return fileList_ ? RowPart::Gap : RowPart::Item;
  const int end = parts.Text.left() + tree_.NameWidth(row) + 4;
  return place.x() < end ? RowPart::Item : RowPart::Rest;
}

}  // namespace tarnwell::ui
