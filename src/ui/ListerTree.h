// The rows of a list on the screen. Reports what the user means with keys and mouse; frames the row
// that has the cursor.
#pragma once

#include <QPersistentModelIndex>
#include <QTreeView>

#include "ui/ListerStyle.h"

namespace tarnwell::ui {

class ListerTree : public QTreeView {
  Q_OBJECT

 public:
  // The style outlives the tree.
  ListerTree(bool fileList, const ListerStyle& style, QWidget* parent);

  // The branch marks are worked out anew before the next paint.
  void RefreshBranches() { scheduleDelayedItemsLayout(); }
  // Whether all rows above the index are expanded.
  bool IsShown(const QModelIndex& index) const;
  // For a list without branches. Between the two, rows come and go, and the row that is the first
  // in sight stays so; a list that is not scrolled stays at its top.
  void HoldTop();
  void ReleaseTop();

 signals:
  void ActivateAsked(const QModelIndex& index);  // Enter or a double click
  void UpFolderAsked();
  void FocusTaken();
  void MouseReleased();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

 private:
  const ListerStyle& style_;
  QPersistentModelIndex top_;
};

}  // namespace tarnwell::ui
