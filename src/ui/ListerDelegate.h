// Paints the cells of a list: comfortable height, hidden items dimmed, the whole text as tool-tip
// where the cell cuts it.
#pragma once

#include <QStyledItemDelegate>

#include "lister/ListerControl.h"
#include "ui/ListerStyle.h"

namespace tarnwell::ui {

class ListerDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  // Both outlive the delegate.
  ListerDelegate(const lister::ListerControl& control, const ListerStyle& style, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  bool IsHidden(const QModelIndex& index) const;

  const lister::ListerControl& control_;
  const ListerStyle& style_;
};

}  // namespace tarnwell::ui
