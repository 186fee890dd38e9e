#include "ui/operation/OperationStrip.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

constexpr int LineHeight = 1;  // of the line that parts it from the panes
// Of the window's height, at most.
constexpr int Share = 3;

}  // namespace

OperationStrip::OperationStrip(fileops::OperationQueue& queue, const OperationTools& tools,
                               std::function<void()> leave, QWidget* parent)
    : QWidget(parent), list_(new OperationList(queue, tools, std::move(leave), this)) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, LineHeight, 0, 0);
  column->addWidget(list_);
  list_->Changed = [this] { Fit(); };
  window()->installEventFilter(this);
  hide();
}

void OperationStrip::Show(const std::vector<const fileops::OperationRecord*>& records) {
  list_->Show(records);
  if (!records.empty()) Fit();
  if (isHidden() != records.empty()) setVisible(!records.empty());
}

void OperationStrip::Fit() {
  const int height = std::min(list_->sizeHint().height() + LineHeight, window()->height() / Share);
  if (height != minimumHeight() || height != maximumHeight()) setFixedHeight(height);
}

bool OperationStrip::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && isVisible()) Fit();
  return QWidget::eventFilter(watched, event);
}

void OperationStrip::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(0, 0, width(), LineHeight, LineColour(palette()));
}

}  // namespace tarnwell::ui
