// The rows of a list on the screen. Paints them, knows where they stand, and reports what the user
// does with keys, mouse and wheel; the cursor and the branches of a folder list are Qt's to move.
#pragma once

#include <QPersistentModelIndex>
#include <QTreeView>
#include <functional>

#include "lister/ListerControl.h"
#include "ui/list/ListerMouse.h"
#include "ui/list/ListerStyle.h"
#include "ui/toolkit/WheelNotches.h"

class QDrag;

namespace tarnwell::ui {

class ListerDelegate;

class ListerTree : public QTreeView {
  Q_OBJECT

 public:
  // Control and style outlive the tree.
  ListerTree(const lister::ListerControl& control, const ListerStyle& style, QWidget* parent);

  ListerMouse& Mouse() { return mouse_; }

  // The branch marks are worked out anew before the next paint.
  void RefreshBranches() { scheduleDelayedItemsLayout(); }
  // Whether all rows above the index are expanded.
  bool IsShown(const QModelIndex& index) const;
  // For a list without branches. Between the two, rows come and go, and the row that is the first
  // in sight stays so; a list that is not scrolled stays at its top.
  void HoldTop();
  void ReleaseTop();
  // Between these two rows change places, and the row with the cursor stays in sight if it was,
  // unless the top is held.
  void HoldCurrent();
  void ReleaseCurrent();
  void ScrollToTop();
  void ScrollRows(int rows);  // down; up if it is below 0
  // Scrolls as little as it takes; a row far away comes to the middle.
  void BringIntoView(const QModelIndex& index);

  // --- Where rows stand, in the viewport.

  int RowHeight() const;
  int PageRows() const;
  // Of a list without branches: the rows that are on the screen, whole or in part.
  lister::RowRange VisibleRows() const;
  // The name cell in the row at that height, also above and below the viewport where the list has
  // rows there; not valid where it has none.
  QModelIndex RowAt(int y) const;
  // Its position, -1 above the first row; below the last one the number of rows.
  int PositionAt(int y) const;
  // The cell with the name, less the space for branches.
  QRect NameCellOf(const QModelIndex& index) const;
  int NameWidth(const QModelIndex& index) const;
  // Whether the place is in the space for branches, which only a folder list has.
  bool IsBranch(const QPoint& place, const QModelIndex& index) const;
  // How far the rows are scrolled, in pixels.
  QPoint Scrolled() const;

  // The list as a whole is what would take what is dragged, while the control shows such marks.
  void MarkWhole(bool on);
  // What is selected here is dragged: runs the work once that is over, now if it is not.
  void WhenDragEnds(std::function<void()> work);
  void BeginDrag(QDrag& drag) { drag_ = &drag; }
  void EndDrag();
  QDrag* RunningDrag() const { return drag_; }
  lister::ListId Id() const { return control_.Id(); }

  // Asked when Escape goes down, ahead of the window, which has it as a shortcut: true if the list
  // had a use for it.
  std::function<bool()> TakesEscape;
  // What Qt itself does with a key: branches, and in a folder list the cursor.
  bool TakesKey(const QKeyEvent& event) const;
  void HandleKey(QKeyEvent& event) { QTreeView::keyPressEvent(&event); }

 signals:
  void ActivateAsked(const QModelIndex& index);  // a double click in a folder list
  void KeyPressed(const QKeyEvent& event);       // one that means or types something
  void KeyReleased(const QKeyEvent& event);
  void TextTyped(const QString& text);  // by an input method
  void WheelTurned(int notches);        // away from the user if above 0
  void FocusTaken();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void keyboardSearch(const QString&) override {}  // typing goes to the control
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int across, int down) override;
  void paintEvent(QPaintEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
  int sizeHintForColumn(int column) const override;

  void dataChanged(const QModelIndex& first, const QModelIndex& last,
                   const QList<int>& roles = {}) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  const ListerDelegate& Delegate() const;
  int Indent(const QModelIndex& index) const;
  void PaintBand(QPainter& painter) const;
  void PaintTarget(QPainter& painter, const QRect& area) const;

  const lister::ListerControl& control_;
  const ListerStyle& style_;
  const bool fileList_;
  ListerMouse mouse_;
  QPersistentModelIndex top_;
  bool topHeld_ = false;
  bool currentHeld_ = false;
  bool wholeMarked_ = false;
  QDrag* drag_ = nullptr;
  std::function<void()> afterDrag_;
  bool escapeTaken_ = false;  // and its key press is still to come
  WheelNotches wheel_;
};

}  // namespace tarnwell::ui
