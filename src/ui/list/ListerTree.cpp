#include "ui/list/ListerTree.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "ui/list/ListerAccess.h"
#include "ui/list/ListerDelegate.h"
#include "ui/list/ListerKeys.h"
#include "ui/list/ListerModel.h"
#include "ui/list/ListerRow.h"

namespace tarnwell::ui {

using lister::HeadingId;
using lister::MouseAction;

namespace {

constexpr int NameColumn = static_cast<int>(HeadingId::Name);

int FloorDivide(int value, int by) {
  return value >= 0 ? value / by : -((by - 1 - value) / by);
}

}  // namespace

ListerTree::ListerTree(const lister::ListerControl& control, const ListerStyle& style,
                       QWidget* parent)
    : QTreeView(parent),
      control_(control),
      style_(style),
      fileList_(lister::IsFileList(control.Id())),
      mouse_(*this, control.Input(), fileList_) {
  TellOfHiddenHeadings();
  setFrameShape(QFrame::NoFrame);
  setMinimumSize(0, 0);
  setUniformRowHeights(true);
  setAnimated(false);
  setEditTriggers(NoEditTriggers);
  setExpandsOnDoubleClick(false);
  setRootIsDecorated(!fileList_);
  setItemsExpandable(!fileList_);
  setIndentation(fileList_ ? 0 : 16);
  // What is selected is the control's affair.
  setSelectionMode(NoSelection);
  setSelectionBehavior(SelectRows);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  setAttribute(Qt::WA_InputMethodEnabled);
  viewport()->setMouseTracking(true);
  connect(&mouse_, &ListerMouse::Hovered, viewport(), qOverload<>(&QWidget::update));
}

const ListerDelegate& ListerTree::Delegate() const {
  return *static_cast<const ListerDelegate*>(itemDelegate());
}

bool ListerTree::IsShown(const QModelIndex& index) const {
  for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
    if (!isExpanded(above)) return false;
  }
  return index.isValid();
}

// --- Scrolling

void ListerTree::HoldTop() {
  const int row = verticalScrollBar()->value();  // by rows, all of which are in one branch
  top_ = row > 0 ? model()->index(row, 0) : QModelIndex();
  topHeld_ = true;
}

void ListerTree::ReleaseTop() {
  if (top_.isValid()) {
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(top_.row());
  }
  top_ = QModelIndex();
  topHeld_ = false;
}

void ListerTree::HoldCurrent() {
  const int row = currentIndex().row();
  const lister::RowRange visible = VisibleRows();
  currentHeld_ = fileList_ && !topHeld_ && row >= visible.First && row <= visible.Last;
}

void ListerTree::ReleaseCurrent() {
  if (currentHeld_) BringIntoView(currentIndex());
  currentHeld_ = false;
}

void ListerTree::ScrollToTop() {
  executeDelayedItemsLayout();
  verticalScrollBar()->setValue(0);
}

void ListerTree::ScrollRows(int rows) {
  executeDelayedItemsLayout();
  verticalScrollBar()->setValue(verticalScrollBar()->value() + rows);
}

void ListerTree::BringIntoView(const QModelIndex& index) {
  if (!index.isValid()) return;
  if (!fileList_) {
    if (IsShown(index)) scrollTo(index);
    return;
  }
  executeDelayedItemsLayout();
  const int page = PageRows();
  const int top = verticalScrollBar()->value();
  const int row = index.row();
  if (row >= top && row < top + page) return;
  const bool near = row >= top - page && row < top + 2 * page;
  verticalScrollBar()->setValue(!near ? row - page / 2 : row < top ? row : row - page + 1);
}

// --- Where rows stand

int ListerTree::RowHeight() const {
  return std::max(1, Delegate().RowHeight(fontMetrics(), iconSize()));
}

int ListerTree::PageRows() const {
  return std::max(1, viewport()->height() / RowHeight());
}

lister::RowRange ListerTree::VisibleRows() const {
  const int count = model()->rowCount();
  const int first = std::clamp(verticalScrollBar()->value(), 0, std::max(0, count - 1));
  return {first, std::min(count, first + viewport()->height() / RowHeight() + 1) - 1};
}

QModelIndex ListerTree::RowAt(int y) const {
  if (fileList_) return model()->index(PositionAt(y), NameColumn);
  return indexAt(QPoint(viewport()->width() / 2, y)).siblingAtColumn(NameColumn);
}

int ListerTree::PositionAt(int y) const {
  if (!fileList_) return RowAt(y).row();
  const int position = verticalScrollBar()->value() + FloorDivide(y, RowHeight());
  return std::clamp(position, -1, model()->rowCount());
}

QRect ListerTree::NameCellOf(const QModelIndex& index) const {
  const int top = !index.isValid() ? 0
                  : fileList_      ? (index.row() - verticalScrollBar()->value()) * RowHeight()
                                   : visualRect(index).top();
  return QRect(columnViewportPosition(NameColumn), top, columnWidth(NameColumn), RowHeight())
      .adjusted(Indent(index), 0, 0, 0);
}

int ListerTree::NameWidth(const QModelIndex& index) const {
  return Delegate().NameWidth(fontMetrics(), ListerModel::RowOf(index));
}

bool ListerTree::IsBranch(const QPoint& place, const QModelIndex& index) const {
  return index.isValid() && place.x() >= columnViewportPosition(NameColumn) &&
         place.x() < NameCellOf(index.siblingAtColumn(NameColumn)).left();
}

QPoint ListerTree::Scrolled() const {
  return {horizontalScrollBar()->value(), verticalScrollBar()->value() * RowHeight()};
}

int ListerTree::Indent(const QModelIndex& index) const {
  int levels = fileList_ ? 0 : 1;
  for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) ++levels;
  return levels * indentation();
}

int ListerTree::sizeHintForColumn(int column) const {
  if (!fileList_) return QTreeView::sizeHintForColumn(column);
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  int width = -1;
  const lister::RowRange visible = VisibleRows();
  for (int row = visible.First; row <= visible.Last; ++row) {
    width = std::max(width, Delegate().sizeHint(option, model()->index(row, column)).width());
  }
  return width;
}

// --- Dragging

void ListerTree::MarkWhole(bool on) {
  if (std::exchange(wholeMarked_, on) != on) viewport()->update();
}

void ListerTree::WhenDragEnds(std::function<void()> work) {
  if (drag_ == nullptr) return work();
  afterDrag_ = std::move(work);
}

void ListerTree::EndDrag() {
  drag_ = nullptr;
  if (const auto work = std::exchange(afterDrag_, {})) work();
}

// --- What the user does

bool ListerTree::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && TakesEscape) {
    escapeTaken_ = TakesEscape();
    event->setAccepted(escapeTaken_);
    return true;
  }
  return QTreeView::event(event);
}

void ListerTree::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && std::exchange(escapeTaken_, false)) return;
  event->setAccepted(KeyCodeOf(*event) != 0 || !TypedText(*event).isEmpty());
  if (event->isAccepted()) emit KeyPressed(*event);
}

void ListerTree::keyReleaseEvent(QKeyEvent* event) {
  event->accept();
  if (!event->isAutoRepeat()) emit KeyReleased(*event);
}

bool ListerTree::TakesKey(const QKeyEvent& event) const {
  const int key = event.key();
  if (key == Qt::Key_Left || key == Qt::Key_Right) return true;
  return !fileList_ && (key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_PageUp ||
                        key == Qt::Key_PageDown || key == Qt::Key_Up || key == Qt::Key_Down);
}

void ListerTree::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->commitString().isEmpty()) emit TextTyped(event->commitString());
  event->accept();
}

QVariant ListerTree::inputMethodQuery(Qt::InputMethodQuery query) const {
  return query == Qt::ImEnabled ? QVariant(true) : QTreeView::inputMethodQuery(query);
}

void ListerTree::focusInEvent(QFocusEvent* event) {
  // Past QTreeView, which would put the cursor on the first row if there is none: in a folder list
  // that opens the folder.
  QAbstractScrollArea::focusInEvent(event);  // NOLINT(bugprone-parent-virtual-call)
  viewport()->update();
  emit FocusTaken();
}

void ListerTree::mousePressEvent(QMouseEvent* event) {
  if (!fileList_ && event->button() == Qt::LeftButton) QTreeView::mousePressEvent(event);
  mouse_.Press(*event);
}

void ListerTree::mouseMoveEvent(QMouseEvent* event) {
  mouse_.Move(*event);
}

void ListerTree::mouseReleaseEvent(QMouseEvent* event) {
  if (!fileList_) QTreeView::mouseReleaseEvent(event);
  mouse_.Release(*event);
}

void ListerTree::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const QModelIndex index = indexAt(place);
  if (fileList_) {
    mouse_.DoubleClick(*event);
  } else if (event->button() != Qt::LeftButton || !index.isValid() || IsBranch(place, index)) {
    mousePressEvent(event);
  } else {
    emit ActivateAsked(index);
  }
}

void ListerTree::wheelEvent(QWheelEvent* event) {
  const QPoint angle = event->angleDelta();
  if (std::abs(angle.x()) > std::abs(angle.y())) {
    QTreeView::wheelEvent(event);
    return;
  }
  event->accept();
  const int notches = wheel_.Add(angle.y());
  if (notches != 0) emit WheelTurned(notches);
}

void ListerTree::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();  // the mouse was heard of when its button went down
  if (event->reason() == QContextMenuEvent::Keyboard) mouse_.PressMenuKey();
}

bool ListerTree::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) mouse_.Leave();
  return QTreeView::viewportEvent(event);
}

void ListerTree::resizeEvent(QResizeEvent* event) {
  const int bottom = NameCellOf(currentIndex()).bottom();
  const bool wasSeen = currentIndex().isValid() && bottom > 0 && bottom < event->oldSize().height();
  QTreeView::resizeEvent(event);
  // A list that becomes lower keeps the cursor in sight.
  if (wasSeen && bottom >= viewport()->height()) BringIntoView(currentIndex());
}

void ListerTree::scrollContentsBy(int across, int down) {
  QTreeView::scrollContentsBy(across, down);
  // What is cut at the edges is another part of the columns now.
  if (across == 0) return;
  viewport()->update();
  header()->viewport()->update();
}

// --- Painting

void ListerTree::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (wholeMarked_ && control_.Shown().DragGraphicsOn) {
    QPainter painter(viewport());
    PaintTarget(painter, viewport()->rect());
  }
  if (!mouse_.IsDown() || control_.Input().Action() != MouseAction::Band) return;
  QPainter painter(viewport());
  PaintBand(painter);
}

void ListerTree::PaintBand(QPainter& painter) const {
  QColor fill = style_.ItemOutline;
  fill.setAlphaF(0.16F);
  painter.setPen(style_.ItemOutline);
  painter.setBrush(fill);
  painter.drawRect(mouse_.Band().intersected(viewport()->rect().adjusted(-9, -9, 9, 9)));
}

void ListerTree::PaintTarget(QPainter& painter, const QRect& area) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(style_.ItemOutline, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(area).adjusted(2, 2, -2, -2), 3, 3);
  painter.restore();
}

void ListerTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const QModelIndex name = index.siblingAtColumn(NameColumn);
  const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
  PaintedRow painted{.State = control_.Rows().StateOf(ListerModel::RowOf(name))};
  const auto& pointer = mouse_.Pointer();
  painted.IsHovered = pointer && control_.Shown().HoverGraphicsOn && row.contains(*pointer);
  const QRect nameCell =
      QRect(columnViewportPosition(NameColumn), row.top(), columnWidth(NameColumn), row.height())
          .adjusted(Indent(name), 0, 0, 0);
  painted.IsGapHovered =
      painted.IsHovered &&
      PartsOfName(nameCell, iconSize().width(), fileList_).Gap.contains(*pointer);

  painter->fillRect(row, style_.ColoursOf(painted.State.IsSelected, painted.IsHovered).Fill);
  QStyleOptionViewItem cell = option;
  cell.decorationSize = iconSize();
  for (int place = 0; place < header()->count(); ++place) {
    const int section = header()->logicalIndex(place);
    if (header()->isSectionHidden(section)) continue;
    cell.rect = section == NameColumn ? nameCell
                                      : QRect(columnViewportPosition(section), row.top(),
                                              columnWidth(section), row.height());
    if (cell.rect.right() < 0 || cell.rect.left() >= row.width()) continue;
    // A column that the edge of the list cuts is no wider than what is seen of it.
    cell.rect.setRight(std::min(cell.rect.right(), row.right()));
    Delegate().PaintCell(*painter, cell, index.siblingAtColumn(section), painted);
  }
  if (!fileList_) {
    drawBranches(painter,
                 QRect(nameCell.left() - indentation(), row.top(), indentation(), row.height()),
                 name);
  }
  if (painted.State.Colour != lister::ItemColour::Default) {
    painter->fillRect(QRect(row.left(), row.top() + 1, ColourBar, row.height() - 2),
                      style_.Bars[static_cast<std::size_t>(painted.State.Colour)]);
  }

  if (painted.State.IsTarget) PaintTarget(*painter, row);

  if (currentIndex().siblingAtColumn(NameColumn) != name) return;
  if (hasFocus()) {
    painter->fillRect(QRect(row.left(), row.top(), row.width(), 1), style_.ItemOutline);
    painter->fillRect(QRect(row.left(), row.top(), 1, row.height()), style_.ItemOutline);
    painter->fillRect(QRect(row.right(), row.top(), 1, row.height()), style_.ItemOutline);
  }
  painter->fillRect(QRect(row.left(), row.bottom(), row.width(), 1), style_.ItemUnderline);
}

// A small angle that points at the name, or down when the branch is expanded.
void ListerTree::drawBranches(QPainter* painter, const QRect& rect,
                              const QModelIndex& index) const {
  if (!model()->hasChildren(index)) return;
  const QPointF middle(rect.left() + rect.width() / 2.0, rect.top() + rect.height() / 2.0);
  const lister::RowState state = control_.Rows().StateOf(ListerModel::RowOf(index));
  const QPointF tip = isExpanded(index) ? QPointF(0, 2) : QPointF(2, 0);
  const QPointF wing = isExpanded(index) ? QPointF(4, -4) : QPointF(-4, 4);
  const QPointF points[] = {middle + tip + wing, middle + tip, middle + tip + QPointF(-4, -4)};
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(style_.ColoursOf(state.IsSelected, false).Secondary, 1.5, Qt::SolidLine,
                       Qt::RoundCap, Qt::RoundJoin));
  painter->setBrush(Qt::NoBrush);
  painter->drawPolyline(points, 3);
  painter->restore();
}

// --- What Qt does for every row, and a list of many has no use for

void ListerTree::dataChanged(const QModelIndex& first, const QModelIndex& last,
                             const QList<int>& roles) {
  if (!fileList_) {
    QTreeView::dataChanged(first, last, roles);
    return;
  }
  const lister::RowRange visible = VisibleRows();
  if (last.row() >= visible.First && first.row() <= visible.Last) viewport()->update();
}

void ListerTree::selectionChanged(const QItemSelection&, const QItemSelection&) {
  QAccessibleEvent event(this, QAccessible::SelectionWithin);
  QAccessible::updateAccessibility(&event);
}

}  // namespace tarnwell::ui
