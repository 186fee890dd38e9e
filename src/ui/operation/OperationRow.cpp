#include "ui/operation/OperationRow.h"

#include <QEvent>
#include <QHBoxLayout>
#include <algorithm>
#include <utility>

#include "lister/rows/CellText.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

using fileops::OperationDeed;
using fileops::OperationRecord;

// Logical pixels.
constexpr int RowSideMargin = 8;
constexpr int RowLeading = 4;
constexpr int RowColumnGap = 8;
constexpr int RowPictureEdge = 16;
constexpr int ArrowSize = 10;
constexpr int BarWidth = 180;
constexpr int LeastBarWidth = 60;
constexpr int StatusWidth = 230;  // so that the bars of all rows stand in line
// With less, what it does stands above how far it has come.
constexpr int OneLineWidth = 1040;
// Speed and time left are read, so they stand still a while.
constexpr std::int64_t StatusTime = 1000;  // milliseconds

bool IsAtWork(const OperationRecord& record) {
  return record.State == fileops::OperationState::Running && !record.IsPaused && !record.IsAsking &&
         !record.IsCancelling;
}

// Changes nothing where it is so already.
void SetShown(QWidget& widget, bool on) {
  if (widget.isHidden() == on) widget.setVisible(on);
}

}  // namespace

OperationRow::OperationRow(platform::OperationId operation, fileops::OperationQueue& queue,
                           const OperationTools& tools, QWidget* parent)
    : QFrame(parent),
      operation_(operation),
      queue_(queue),
      tools_(tools),
      grid_(new QGridLayout(this)),
      picture_(new QLabel(this)),
      title_(new ElidedLabel(this)),
      bar_(new QProgressBar(this)),
      status_(new ElidedLabel(this)),
      buttons_(new QWidget(this)),
      details_(new QWidget(this)) {
  setObjectName(QStringLiteral("OperationRow"));
  grid_->setContentsMargins(RowSideMargin, RowLeading, RowSideMargin, RowLeading);
  grid_->setHorizontalSpacing(RowColumnGap);
  grid_->setVerticalSpacing(RowLeading);
  picture_->setFixedWidth(RowPictureEdge);
  bar_->setAlignment(Qt::AlignCenter);

  auto* const line = new QHBoxLayout(buttons_);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(RowLeading);
  line->addStretch();
  for (std::size_t i = 0; i < deeds_.size(); ++i) {
    const auto deed = static_cast<OperationDeed>(i);
    deeds_.at(i) = &AddButton(ToQString(fileops::CaptionOf(deed)));
    deeds_.at(i)->installEventFilter(this);
    connect(deeds_.at(i), &QToolButton::clicked, this,
            [this, deed] { fileops::Do(deed, queue_, operation_); });
  }
  unfold_ = &AddButton(QStringLiteral("Details"));
  unfold_->setCheckable(true);
  unfold_->setArrowType(Qt::RightArrow);
  unfold_->setIconSize(QSize(ArrowSize, ArrowSize));
  unfold_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  unfold_->show();
  connect(unfold_, &QToolButton::toggled, this, [this](bool on) {
    unfold_->setArrowType(on ? Qt::DownArrow : Qt::RightArrow);
    details_->setVisible(on);
    if (const OperationRecord* const record = queue_.Find(operation_)) ShowDetails(*record);
  });

  auto* const facts = new QGridLayout(details_);
  facts->setContentsMargins(0, 0, 0, RowLeading);
  facts->setHorizontalSpacing(RowColumnGap);
  facts->setVerticalSpacing(RowLeading);
  facts->setColumnStretch(1, 1);
  from_ = &AddDetail(*facts, QStringLiteral("From:"));
  to_ = &AddDetail(*facts, QStringLiteral("To:"));
  amount_ = &AddDetail(*facts, QStringLiteral("Done:"));
  details_->hide();
  Arrange();
}

QToolButton& OperationRow::AddButton(const QString& caption) {
  auto* const button = new QToolButton(buttons_);
  button->setText(caption);
  button->setAutoRaise(false);
  // The mouse leaves the keyboard where it is.
  button->setFocusPolicy(Qt::TabFocus);
  button->hide();
  buttons_->layout()->addWidget(button);
  return *button;
}

ElidedLabel& OperationRow::AddDetail(QGridLayout& grid, const QString& caption) {
  auto* const text = new ElidedLabel(details_);
  auto* const head = new QLabel(caption, details_);
  const int row = grid.rowCount();
  grid.addWidget(head, row, 0);
  grid.addWidget(text, row, 1);
  return *text;
}

// Of those of an operation that waits, which has the most of them: so all bars stand in line.
int OperationRow::MostButtonsWidth() const {
  int width = unfold_->sizeHint().width();
  for (const OperationDeed deed :
       {OperationDeed::StartNow, OperationDeed::MoveUp, OperationDeed::TakeAway}) {
    width += RowLeading + deeds_.at(static_cast<std::size_t>(deed))->sizeHint().width();
  }
  return width;
}

// One line, or two of them.
void OperationRow::Arrange() {
  grid_->addWidget(picture_, 0, 0);
  grid_->addWidget(title_, 0, 1);
  if (isNarrow_) {
    grid_->addWidget(status_, 0, 2);
    grid_->addWidget(bar_, 1, 1);
    grid_->addWidget(buttons_, 1, 2);
    grid_->addWidget(details_, 2, 1, 1, 2);
  } else {
    grid_->addWidget(bar_, 0, 2);
    grid_->addWidget(status_, 0, 3);
    grid_->addWidget(buttons_, 0, 4);
    grid_->addWidget(details_, 2, 1, 1, 4);
  }
  grid_->setColumnStretch(1, 1);
  status_->setAlignment((isNarrow_ ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  status_->setSizePolicy(isNarrow_ ? QSizePolicy::Ignored : QSizePolicy::Fixed, QSizePolicy::Fixed);
  status_->setMinimumWidth(isNarrow_ ? 0 : StatusWidth);
  status_->setMaximumWidth(isNarrow_ ? QWIDGETSIZE_MAX : StatusWidth);
  buttons_->setMinimumWidth(isNarrow_ ? StatusWidth : MostButtonsWidth());
  bar_->setMinimumWidth(isNarrow_ ? LeastBarWidth : BarWidth);
  bar_->setMaximumWidth(isNarrow_ ? QWIDGETSIZE_MAX : BarWidth);
}

void OperationRow::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  if (std::exchange(isNarrow_, width() < OneLineWidth) != isNarrow_) Arrange();
}

// When a row goes, another comes to stand under the mouse: a double click is not for both.
bool OperationRow::eventFilter(QObject* watched, QEvent* event) {
  return event->type() == QEvent::MouseButtonDblClick || QFrame::eventFilter(watched, event);
}

void OperationRow::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange) Arrange();
}

void OperationRow::Show(const OperationRecord& record, bool isNext) {
  ShowName(ToShownQString(record.Title));
  ShowPicture(record.IsAsking ? "question" : fileops::PictureOf(record));
  const int percent = fileops::PercentOf(record);
  // Without a percentage it moves while there is work, and is empty while that stands still.
  const int most = percent < 0 && IsAtWork(record) ? 0 : 100;
  if (bar_->maximum() != most) bar_->setRange(0, most);
  bar_->setValue(std::max(percent, 0));
  bar_->setTextVisible(record.State == fileops::OperationState::Running);
  ShowStatus(record);
  ShowDeeds(record, isNext);
  if (details_->isVisible()) ShowDetails(record);
}

// A button that goes hands the keyboard to what stands in its place, "Pause" to "Continue": the
// toolkit would give it to the next one, "Cancel". "Move Up" does not hand it to "Start Now": it
// may be pressed once too often.
void OperationRow::ShowDeeds(const OperationRecord& record, bool isNext) {
  const auto isOffered = [&](std::size_t at) {
    return fileops::CanDo(static_cast<OperationDeed>(at), record, isNext);
  };
  bool losesKeyboard = false;
  for (std::size_t at = 0; at < deeds_.size(); ++at) {
    if (isOffered(at)) SetShown(*deeds_.at(at), true);
    losesKeyboard |= deeds_.at(at)->hasFocus() && !isOffered(at);
  }
  if (losesKeyboard) {
    constexpr auto start = static_cast<std::size_t>(OperationDeed::StartNow);
    std::size_t at = 0;
    while (at < start && !isOffered(at)) ++at;
    (at < start ? deeds_.at(at) : unfold_)->setFocus(Qt::TabFocusReason);
  }
  for (std::size_t at = 0; at < deeds_.size(); ++at) {
    if (!isOffered(at)) SetShown(*deeds_.at(at), false);
  }
}

void OperationRow::ShowName(const QString& title) {
  if (shownTitle_ == title) return;
  shownTitle_ = title;
  title_->ShowText(title);
  setAccessibleName(title);
  bar_->setAccessibleName(QStringLiteral("Progress: %1").arg(title));
  for (QToolButton* const button : buttons_->findChildren<QToolButton*>()) {
    button->setAccessibleName(QStringLiteral("%1: %2").arg(button->text(), title));
  }
}

void OperationRow::ShowPicture(std::string_view name) {
  if (shownPicture_ == name) return;
  shownPicture_ = name;
  picture_->setPixmap(
      tools_.Icons.Own(name).pixmap(QSize(RowPictureEdge, RowPictureEdge), devicePixelRatio()));
}

void OperationRow::ShowStatus(const OperationRecord& record) {
  const std::int64_t now = tools_.Clock.Ticks();
  const bool isAtWork = IsAtWork(record);
  const bool stands = isAtWork && statusAt_ != 0 && now - statusAt_ < StatusTime;
  if (stands) return;
  statusAt_ = isAtWork ? now : 0;
  const QString text = ToShownQString(fileops::StatusOf(record, tools_.Forms));
  status_->ShowText(text);
  QFont font = status_->font();
  if (font.bold() != record.IsAsking) {
    font.setBold(record.IsAsking);
    status_->setFont(font);
  }
}

void OperationRow::ShowDetails(const OperationRecord& record) {
  const auto isSimple = [](const platform::OperationRequest& request) {
    return (request.Flags & platform::SimpleProgress) != 0;
  };
  const bool hasNames = !std::ranges::any_of(record.Order.Requests, isSimple);
  const auto show = [&](ElidedLabel& label, const std::string& text) {
    label.ShowText(text.empty() ? QStringLiteral("-") : ToShownQString(text));
  };
  show(*from_, hasNames ? fileops::FromOf(record) : "");
  show(*to_, hasNames ? fileops::ToOf(record) : "");
  show(*amount_, fileops::AmountOf(record, tools_.Forms));
}

void OperationRow::Enter() {
  window()->setAttribute(Qt::WA_KeyboardFocusChange);  // for the frame that tells where it is
  const auto shown = std::ranges::find_if_not(deeds_, &QWidget::isHidden);
  (shown == deeds_.end() ? unfold_ : *shown)->setFocus(Qt::TabFocusReason);
}

std::vector<QWidget*> OperationRow::Buttons() const {
  std::vector<QWidget*> buttons(deeds_.begin(), deeds_.end());
  buttons.push_back(unfold_);
  return buttons;
}

}  // namespace tarnwell::ui
