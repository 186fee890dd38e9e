#include "ui/ListerTree.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace tarnwell::ui {

ListerTree::ListerTree(bool fileList, const ListerStyle& style, QWidget* parent)
    : QTreeView(parent), style_(style) {
  setFrameShape(QFrame::NoFrame);
  setMinimumSize(0, 0);
  setUniformRowHeights(true);
  setAnimated(false);
  setEditTriggers(NoEditTriggers);
  setExpandsOnDoubleClick(false);
  setRootIsDecorated(!fileList);
  setItemsExpandable(!fileList);
  setIndentation(fileList ? 0 : 16);
  setSelectionMode(fileList ? ExtendedSelection : SingleSelection);
  setSelectionBehavior(SelectRows);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  connect(this, &QTreeView::doubleClicked, this, &ListerTree::ActivateAsked);
}

bool ListerTree::IsShown(const QModelIndex& index) const {
  for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
    if (!isExpanded(above)) return false;
  }
  return index.isValid();
}

void ListerTree::HoldTop() {
  const int row = verticalScrollBar()->value();  // by rows, all of which are in one branch
  top_ = row > 0 ? model()->index(row, 0) : QModelIndex();
}

void ListerTree::ReleaseTop() {
  if (top_.isValid()) {
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(top_.row());
  }
  top_ = QModelIndex();
}

void ListerTree::keyPressEvent(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    if (currentIndex().isValid()) emit ActivateAsked(currentIndex());
  } else if (plain && event->key() == Qt::Key_Backspace) {
    emit UpFolderAsked();
  } else {
    QTreeView::keyPressEvent(event);
  }
}

void ListerTree::focusInEvent(QFocusEvent* event) {
  // Past QTreeView, which would put the cursor on the first row if there is none: in a folder list
  // that opens the folder.
  QAbstractScrollArea::focusInEvent(event);  // NOLINT(bugprone-parent-virtual-call)
  viewport()->update();
  emit FocusTaken();
}

void ListerTree::mouseReleaseEvent(QMouseEvent* event) {
  QTreeView::mouseReleaseEvent(event);
  emit MouseReleased();
}

void ListerTree::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    QTreeView::mouseDoubleClickEvent(event);
  } else {
    mousePressEvent(event);
  }
}

void ListerTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QTreeView::drawRow(painter, option, index);
  const QModelIndex current = currentIndex();
  if (!current.isValid() || current.siblingAtColumn(0) != index.siblingAtColumn(0)) return;
  const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
  if (hasFocus()) {
    painter->fillRect(QRect(row.left(), row.top(), row.width(), 1), style_.ItemOutline);
    painter->fillRect(QRect(row.left(), row.top(), 1, row.height()), style_.ItemOutline);
    painter->fillRect(QRect(row.right(), row.top(), 1, row.height()), style_.ItemOutline);
  }
  painter->fillRect(QRect(row.left(), row.bottom(), row.width(), 1), style_.ItemUnderline);
}

}  // namespace tarnwell::ui
