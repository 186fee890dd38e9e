// Rows of a list or table in a dialog, a little apart from each other.
#pragma once

#include <QStyledItemDelegate>

namespace tarnwell::ui {

class RoomyRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    constexpr int room = 3;  // logical pixels
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, room);
  }
};

}  // namespace tarnwell::ui
