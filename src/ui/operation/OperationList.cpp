#include "ui/operation/OperationList.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace tarnwell::ui {

using fileops::OperationRecord;

OperationList::OperationList(fileops::OperationQueue& queue, const OperationTools& tools,
                             std::function<void()> leave, QWidget* parent)
    : QScrollArea(parent),
      queue_(queue),
      tools_(tools),
      leave_(std::move(leave)),
      page_(new QWidget(this)),
      column_(new QVBoxLayout(page_)) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(QStringLiteral("Operations"));
  column_->setContentsMargins(0, 0, 0, 0);
  column_->setSpacing(0);
  column_->addStretch();
  setWidget(page_);
  page_->installEventFilter(this);
}

OperationRow* OperationList::FindRow(platform::OperationId operation) const {
  const auto found = std::ranges::find(rows_, operation, &OperationRow::Operation);
  return found == rows_.end() ? nullptr : *found;
}

void OperationList::Show(const std::vector<const OperationRecord*>& records) {
  for (std::size_t at = rows_.size(); at-- > 0;) {
    const auto isRow = [&](const OperationRecord* each) {
      return each->Id == rows_[at]->Operation();
    };
    if (std::ranges::none_of(records, isRow)) Remove(at);
  }
  bool isNext = true;
  bool isNew = false;
  for (std::size_t at = 0; at < records.size(); ++at) {
    const OperationRecord& record = *records[at];
    OperationRow* row = FindRow(record.Id);
    const auto place = rows_.begin() + static_cast<std::ptrdiff_t>(at);
    if (row == nullptr) {
      row = new OperationRow(record.Id, queue_, tools_, page_);
      column_->insertWidget(static_cast<int>(at), row);
      rows_.insert(place, row);
      isNew = true;
    } else if (rows_[at] != row) {
      column_->removeWidget(row);
      column_->insertWidget(static_cast<int>(at), row);
      const auto from = std::ranges::find(rows_, row);
      std::rotate(place, from, from + 1);
      isNew = true;
    }
    const bool waits = record.State == fileops::OperationState::Waiting;
    row->Show(record, waits && isNext);
    isNext = isNext && !waits;
  }
  if (isNew) ChainRows();
}

// Tab goes down the rows as they stand.
void OperationList::ChainRows() {
  QWidget* last = nullptr;
  for (const OperationRow* const row : rows_) {
    for (QWidget* const button : row->Buttons()) {
      if (last != nullptr) setTabOrder(last, button);
      last = button;
    }
  }
}

// The keyboard goes to the row that comes to stand there, or away if there is none: the toolkit
// would give it to whatever comes next.
void OperationList::Remove(std::size_t at) {
  OperationRow* const row = rows_[at];
  const QWidget* const focus = row->window()->focusWidget();
  const bool hadKeyboard = row->isAncestorOf(focus);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(at));
  if (hadKeyboard) {
    if (rows_.empty()) {
      leave_();
    } else {
      rows_[std::min(at, rows_.size() - 1)]->Enter();
    }
  }
  column_->removeWidget(row);
  row->hide();
  row->deleteLater();  // one of its buttons may be what has ended it
}

void OperationList::Enter() {
  const auto asks = [this](const OperationRow* row) {
    const OperationRecord* const record = queue_.Find(row->Operation());
    return record != nullptr && record->IsAsking;
  };
  if (rows_.empty()) return;
  const auto asking = std::ranges::find_if(rows_, asks);
  OperationRow* const row = asking == rows_.end() ? rows_.front() : *asking;
  row->Enter();
  ensureWidgetVisible(row);
}

bool OperationList::HoldsKeyboard() const {
  const QWidget* const focus = QApplication::focusWidget();
  return focus != nullptr && isAncestorOf(focus);
}

QSize OperationList::sizeHint() const {
  return page_->sizeHint();
}

bool OperationList::eventFilter(QObject* watched, QEvent* event) {
  if (watched == page_ && event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    if (Changed) Changed();
  }
  return QScrollArea::eventFilter(watched, event);
}

// Escape, which is a key of the window.
bool OperationList::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  return QScrollArea::event(event);
}

void OperationList::keyPressEvent(QKeyEvent* event) {
  auto* const button = qobject_cast<QToolButton*>(QApplication::focusWidget());
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->key() == Qt::Key_Escape) {
    leave_();
  } else if (isEnter && button != nullptr && isAncestorOf(button)) {
    if (!event->isAutoRepeat()) button->click();
  } else {
    event->ignore();
  }
}

}  // namespace tarnwell::ui
