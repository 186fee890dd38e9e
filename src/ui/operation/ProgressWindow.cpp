#include "ui/operation/ProgressWindow.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "lister/rows/CellText.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"

namespace tarnwell::ui {
namespace {

constexpr int Width = 480;  // logical pixels
constexpr int ProgressRowSpacing = 6;
// Speed and time left are read, so they stand still a while: one of so many calls changes them.
constexpr int CallsPerSpeed = 4;

QString VerbOf(const platform::OperationRequest& request) {
  switch (request.Function) {
    case platform::FileFunction::Move:
      return QStringLiteral("Moving");
    case platform::FileFunction::Copy:
      return QStringLiteral("Copying");
    case platform::FileFunction::Rename:
      return QStringLiteral("Renaming");
    case platform::FileFunction::Delete:
      if ((request.Flags & platform::AllowUndo) != 0) return QStringLiteral("Moving to the trash");
      return QStringLiteral("Deleting");
    case platform::FileFunction::None:
      break;
  }
  return QStringLiteral("Working");
}

void SetText(QLabel& label, const std::string& text) {
  const QString shown = ToQString(text);
  if (label.text() != shown) label.setText(shown);
}

std::string OfText(const std::string& done, const std::string& total) {
  return done + " of " + total;
}

}  // namespace

ProgressWindow::ProgressWindow(const platform::OperationRequest& request,
                               const OperationTools& tools, Actions actions)
    : tools_(tools), actions_(std::move(actions)), verb_(VerbOf(request)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  setWindowTitle(verb_);
  setObjectName(QStringLiteral("ProgressWindow"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);

  if ((request.Flags & platform::SimpleProgress) == 0) {
    auto* const paths = new QGridLayout;
    paths->setVerticalSpacing(ProgressRowSpacing);
    paths->setHorizontalSpacing(DialogSpacing);
    paths->setColumnStretch(1, 1);
    name_ = &AddPath(*paths, verb_ + ':');
    from_ = &AddPath(*paths, QStringLiteral("From:"));
    if (request.Function != platform::FileFunction::Delete) {
      to_ = &AddPath(*paths, QStringLiteral("To:"));
    }
    column->addLayout(paths);
  }

  bar_.setAccessibleName(QStringLiteral("Progress"));
  bar_.setAlignment(Qt::AlignCenter);
  // Whoever was typing when the window came presses no button; screen readers begin here.
  bar_.setFocusPolicy(Qt::StrongFocus);
  column->addWidget(&bar_);

  auto* const numbers = new QGridLayout;
  numbers->setVerticalSpacing(ProgressRowSpacing);
  numbers->setHorizontalSpacing(DialogSpacing);
  numbers->addWidget(&bytes_, 0, 0);
  numbers->addWidget(&speed_, 0, 1, Qt::AlignRight);
  numbers->addWidget(&items_, 1, 0);
  numbers->addWidget(&left_, 1, 1, Qt::AlignRight);
  column->addLayout(numbers);
  const bool hasBytes = request.Function != platform::FileFunction::Delete;
  bytes_.setVisible(hasBytes);
  speed_.setVisible(hasBytes);

  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* const button : {&pause_, &cancel_}) {
    button->setMinimumWidth(DialogButtonWidth);
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  pause_.setText(QStringLiteral("&Pause"));
  cancel_.setText(QStringLiteral("Ca&ncel"));
  connect(&pause_, &QPushButton::clicked, this, [this] { TogglePause(); });
  connect(&cancel_, &QPushButton::clicked, this, [this] { reject(); });
  column->addLayout(buttons);

  column->setSizeConstraint(QLayout::SetFixedSize);
  bar_.setMinimumWidth(Width - 2 * DialogMargin);
  bar_.setFocus();
}

ElidedLabel& ProgressWindow::AddPath(QGridLayout& grid, const QString& caption) {
  auto* const path = new ElidedLabel(this);
  const int row = grid.rowCount();
  grid.addWidget(new QLabel(caption, this), row, 0);
  grid.addWidget(path, row, 1);
  return *path;
}

void ProgressWindow::Show(const ProgressReport& report, const fileops::OperationMeter& meter) {
  if (cancelling_) return;
  ShowNames(report);
  ShowBar(report.Numbers);
  if (!paused_ && shown_++ % CallsPerSpeed == 0) ShowSpeed(report.Numbers, meter);
}

void ProgressWindow::ShowNames(const ProgressReport& report) {
  if (name_ == nullptr) return;
  const auto show = [](ElidedLabel& label, const std::string& text) {
    label.ShowText(ToShownQString(text));
  };
  show(*name_, lister::NameText(tools_.Syntax, report.From));
  show(*from_, tools_.Syntax.ParentOf(report.From));
  if (to_ != nullptr) show(*to_, tools_.Syntax.ParentOf(report.To));
}

void ProgressWindow::ShowBar(const platform::OperationProgress& progress) {
  const platform::NumberForms& forms = tools_.Forms;
  const auto size = [&](std::uint64_t bytes) { return lister::ByteText(forms, bytes); };
  const bool byBytes = progress.BytesTotal > 0;
  const int percent = byBytes ? fileops::PercentOf(progress.BytesDone, progress.BytesTotal)
                              : fileops::PercentOf(progress.ItemsDone, progress.ItemsTotal);
  // A part of what is not known yet is no number.
  bar_.setRange(0, progress.IsCounting ? 0 : 100);
  bar_.setValue(percent);
  SetText(bytes_,
          byBytes ? OfText(size(progress.BytesDone), size(progress.BytesTotal)) : std::string());
  SetText(items_, OfText(forms.Grouped(progress.ItemsDone),
                         lister::CountText(forms, progress.ItemsTotal, "item")));
  QString title = verb_;
  if (!progress.IsCounting)
    title = QStringLiteral("%1% - %2")
                .arg(ToQString(forms.Grouped(static_cast<std::uint64_t>(percent))), verb_);
  if (paused_) title += QStringLiteral(" (paused)");
  if (windowTitle() != title) setWindowTitle(title);
}

void ProgressWindow::ShowSpeed(const platform::OperationProgress& progress,
                               const fileops::OperationMeter& meter) {
  const std::uint64_t speed = meter.BytesPerSecond();
  SetText(speed_, speed > 0 ? lister::ByteText(tools_.Forms, speed) + "/s" : "");
  if (progress.IsCounting) {
    SetText(left_, "Counting...");
    return;
  }
  const auto seconds = meter.SecondsLeft(progress.BytesTotal, progress.ItemsTotal);
  SetText(left_, seconds ? fileops::TimeLeftText(tools_.Forms, *seconds) : "");
}

void ProgressWindow::TogglePause() {
  paused_ = !paused_;
  pause_.setText(paused_ ? QStringLiteral("&Continue") : QStringLiteral("&Pause"));
  if (paused_) {
    speed_.clear();
    left_.setText(QStringLiteral("Paused"));
  } else {
    left_.clear();
    shown_ = 0;
  }
  actions_.Pause(paused_);
}

void ProgressWindow::ShowCancelling() {
  cancelling_ = true;
  pause_.setEnabled(false);
  cancel_.setEnabled(false);
  speed_.clear();
  left_.setText(QStringLiteral("Cancelling..."));
  setWindowTitle(QStringLiteral("%1 (cancelling)").arg(verb_));
}

void ProgressWindow::reject() {
  if (!cancelling_) actions_.Cancel();
}

}  // namespace tarnwell::ui
