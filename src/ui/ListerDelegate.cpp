#include "ui/ListerDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "ui/Convert.h"
#include "ui/ListerModel.h"

namespace tarnwell::ui {

ListerDelegate::ListerDelegate(const lister::ListerControl& control, const ListerStyle& style,
                               QObject* parent)
    : QStyledItemDelegate(parent), control_(control), style_(style) {}

void ListerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  // A style tints the icons of selected rows, and an open folder looks closed in grey: the style
  // leaves the place free, and the icon goes there as it is.
  const QIcon icon = std::exchange(item.icon, {});
  const QStyle* style = item.widget->style();
  style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
  if (icon.isNull()) return;
  const QRect place = style->subElementRect(QStyle::SE_ItemViewItemDecoration, &item, item.widget);
  const double opacity = painter->opacity();
  if (IsHidden(index)) painter->setOpacity(opacity * 0.6);
  icon.paint(painter, place, item.decorationAlignment);
  painter->setOpacity(opacity);
}

bool ListerDelegate::IsHidden(const QModelIndex& index) const {
  return control_.Look(ListerModel::RowOf(index)).IsHidden;
}

QSize ListerDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QSize size = QStyledItemDelegate::sizeHint(option, index);
  size.setHeight(std::max(option.fontMetrics.height() + 6, option.decorationSize.height() + 4));
  return size;
}

void ListerDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  // The tree frames the whole row that has the cursor; a frame round one cell would be a second.
  option->state &= ~QStyle::State_HasFocus;
  if (IsHidden(index)) {
    option->palette.setColor(QPalette::Text, style_.Secondary);
  }
}

bool ListerDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const bool cut = sizeHint(option, index).width() > option.rect.width();
  const QString text = cut ? PlainToolTip(index.data().toString()) : QString();
  QToolTip::showText(event->globalPos(), text, view->viewport(), option.rect);
  return true;
}

}  // namespace tarnwell::ui
