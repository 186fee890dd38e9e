// Paints the cells of a list: icon, arrow of a selected item, name and badges, other cells beside
// them; the whole text as tool-tip where the cell cuts it, and what the badges mean.
#pragma once

#include <QStyledItemDelegate>

#include "lister/list/ListAppearance.h"
#include "lister/rows/ListRows.h"
#include "ui/list/ListerStyle.h"

namespace tarnwell::ui {

// How a row is shown besides what the list says of it.
struct PaintedRow {
  lister::RowState State;
  bool IsHovered = false;
  bool IsGapHovered = false;
};

class ListerDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  // All outlive the delegate.
  ListerDelegate(const lister::ListRows& rows, const lister::ListAppearance& shown,
                 const ListerStyle& style, QObject* parent);

  // Paints a cell onto the row's fill, which is there already.
  void PaintCell(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                 const PaintedRow& row) const;
  int RowHeight(const QFontMetrics& metrics, const QSize& icon) const;
  // Of the text of a row's name as it is shown, in pixels.
  int NameWidth(const QFontMetrics& metrics, lister::RowId row) const;

  // Width of what the cell holds, and the height that all rows have.
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 private:
  void PaintName(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                 const PaintedRow& row) const;

  const lister::ListRows& rows_;
  const lister::Headings& table_;
  const ListerStyle& style_;
  const bool fileList_;
};

}  // namespace tarnwell::ui
