#include "ui/forms/TrashList.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/RoomyRows.h"

namespace tarnwell::ui {

namespace {

class TrashDelegate : public RoomyRows {
 public:
  using RoomyRows::RoomyRows;

 protected:
  // Numbers stay off what stands right of them.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    RoomyRows::initStyleOption(option, index);
    if (option->displayAlignment.testFlag(Qt::AlignRight)) option->text += QLatin1String("  ");
  }
};

}  // namespace

TrashList::TrashList(QWidget* parent) : QTreeView(parent) {
  setAccessibleName(QStringLiteral("Recycle bin"));
  setItemDelegate(new TrashDelegate(this));
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setTextElideMode(Qt::ElideMiddle);
  setVerticalScrollMode(ScrollPerItem);
  header()->setSectionsClickable(true);
  header()->setSortIndicatorShown(true);
  header()->setFirstSectionMovable(true);
  header()->setStretchLastSection(true);
}

void TrashList::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit PropertiesAsked();
      return;
    case Qt::Key_Delete:
      emit DeleteAsked();
      return;
    case Qt::Key_F10:
      if (event->modifiers() != Qt::ShiftModifier) break;
      AskMenu();
      return;
    default:
      break;
  }
  const bool isCommand =
      event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  const QString text = event->text();
  if (isCommand || text.isEmpty() || text.at(0) == QLatin1Char(' ') ||
      !(text.at(0).isPrint() || text.at(0).isSurrogate())) {
    return QTreeView::keyPressEvent(event);
  }
  emit Typed(text);
}

void TrashList::mouseDoubleClickEvent(QMouseEvent* event) {
  QTreeView::mouseDoubleClickEvent(event);
  const bool isMain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
  if (isMain && indexAt(event->pos()).isValid()) emit PropertiesAsked();
}

void TrashList::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Mouse) return AskMenu();
  if (!indexAt(event->pos()).isValid()) clearSelection();
  emit MenuAsked(event->globalPos());
}

// By a key it stands at the row that has the cursor.
void TrashList::AskMenu() {
  const QModelIndex current = currentIndex();
  if (current.isValid()) scrollTo(current);
  const QPoint place = current.isValid() ? visualRect(current).bottomLeft() : QPoint();
  emit MenuAsked(viewport()->mapToGlobal(place));
}

// The whole text of a cell that is cut.
bool TrashList::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
  const auto* const help = static_cast<QHelpEvent*>(event);
  const QModelIndex index = indexAt(help->pos());
  const QString text = index.data(Qt::AccessibleDescriptionRole).toString().isEmpty()
                           ? index.data().toString()
                           : index.data(Qt::AccessibleDescriptionRole).toString();
  const bool fits =
      !index.isValid() || sizeHintForIndex(index).width() <= visualRect(index).width();
  if (fits && text == index.data().toString()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help->globalPos(), PlainToolTip(text), viewport(), visualRect(index));
  }
  return true;
}

}  // namespace tarnwell::ui
