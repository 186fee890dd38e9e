#include "ui/properties/PropertiesWindow.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ScrollPage.h"

namespace tarnwell::ui {

using platform::CountedText;

namespace {

using namespace std::chrono_literals;

constexpr int PermissionsTab = 1;
constexpr int PageTickTime = 100;  // milliseconds
// Most items are known by then, and the window comes up whole.
constexpr auto FirstWait = 40ms;

// Whether the worker has come to its end; it is gone then.
template <typename Work>
bool EndIfDone(std::unique_ptr<Work>& worker) {
  if (!worker || !worker->IsDone()) return false;
  worker.reset();
  return true;
}

}  // namespace

PropertiesWindow::PropertiesWindow(std::vector<std::string> paths, const PropertiesTools& tools,
                                   std::function<void(PropertiesWindow&)> closed)
    : paths_(std::move(paths)),
      tools_(tools),
      closed_(std::move(closed)),
      tabs_(this),
      general_(paths_, tools.Look),
      permissions_(tools.Look.Forms, [this] { EnableButtons(); }) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  setWindowTitle(ToWindowTitle(
      paths_.size() == 1
          ? platform::Filled("Properties of %1",
                             {lister::NameText(tools_.Look.Syntax, paths_.front())})
          : platform::Counted(tools_.Look.Forms, CountedText::PropertiesOf, paths_.size())));
  setObjectName(QStringLiteral("PropertiesWindow"));
  tabs_.addTab(new ScrollPage(&general_), QStringLiteral("&General"));
  tabs_.addTab(new ScrollPage(&permissions_), QStringLiteral("&Permissions"));

  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(DialogSpacing);
  buttons->addStretch();
  for (QPushButton* const button : {&ok_, &cancel_, &apply_}) {
    button->setMinimumWidth(DialogButtonWidth);
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  ok_.setText(QStringLiteral("&OK"));
  ok_.setDefault(true);
  cancel_.setText(QStringLiteral("Ca&ncel"));
  apply_.setText(QStringLiteral("&Apply"));
  connect(&ok_, &QPushButton::clicked, this, [this] { accept(); });
  connect(&cancel_, &QPushButton::clicked, this, [this] { reject(); });
  connect(&apply_, &QPushButton::clicked, this, [this] { Apply(); });
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addWidget(&tabs_);
  column->addLayout(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
  ok_.setFocus();

  tick_.setInterval(PageTickTime);
  connect(&tick_, &QTimer::timeout, this, [this] { Tick(); });
  count_ = std::make_unique<Worker<FactsReport>>(
      ReadFacts(tools_.Files, tools_.Inspector, paths_, true));
  count_->WaitFor(FirstWait, [](const FactsReport& report) { return report.HasSummary; });
  Tick();
  EnableButtons();
}

void PropertiesWindow::Tick() {
  if (left_) {
    if (!EndWork()) return;
    tick_.stop();
    return closed_(*this);
  }
  if (change_) FollowChange();
  FollowFacts();
  if (left_) return;
  const bool runs = count_ || facts_ || change_;
  runs ? tick_.start() : tick_.stop();
}

void PropertiesWindow::FollowFacts() {
  if (count_) {
    const bool done = count_->IsDone();
    const FactsReport report = count_->Read();
    shown_.Total = report.Total;
    shown_.IsCounted = report.IsCounted;
    if (!shown_.HasSummary) {
      shown_.HasSummary = report.HasSummary;
      shown_.Summary = report.Summary;
    }
    if (done) count_.reset();
  }
  if (facts_ && facts_->Read().HasSummary) {
    shown_.Summary = facts_->Read().Summary;
    hasPermissions_ = false;
    facts_.reset();
  }
  general_.Show(shown_);
  if (shown_.HasSummary && !hasPermissions_ && !facts_ && !change_) {
    hasPermissions_ = true;
    permissions_.Show(shown_.Summary);
    EnableButtons();
  }
}

void PropertiesWindow::EnableButtons() {
  const bool changes = !change_ && !facts_ && permissions_.Change().has_value();
  apply_.setEnabled(changes);
  ok_.setEnabled(!change_ && !facts_);
}

void PropertiesWindow::Apply() {
  const auto wanted = permissions_.Change();
  if (!wanted || change_ || facts_) return;
  permissions_.ShowTroubles({});
  permissions_.ShowBusy({});
  change_ = std::make_unique<Worker<platform::PermissionOutcome>>(
      ChangePermissions(tools_.Inspector, paths_, *wanted, permissions_.IsInside()));
  change_->WaitFor(FirstWait, [](const platform::PermissionOutcome&) { return false; });
  Tick();
  EnableButtons();
}

void PropertiesWindow::FollowChange() {
  const bool done = change_->IsDone();
  const platform::PermissionOutcome outcome = change_->Read();
  if (!done) {
    permissions_.ShowBusy(ToQString(
        platform::Counted(tools_.Look.Forms, CountedText::ChangingPermissions, outcome.Items)));
    return;
  }
  change_.reset();
  permissions_.ShowTroubles(outcome);
  if (outcome.Failed > 0) {
    closes_ = false;
    tabs_.setCurrentIndex(PermissionsTab);
  }
  if (closes_) return Leave();
  facts_ = std::make_unique<Worker<FactsReport>>(
      ReadFacts(tools_.Files, tools_.Inspector, paths_, false));
  facts_->WaitFor(FirstWait, [](const FactsReport& report) { return report.HasSummary; });
}

void PropertiesWindow::accept() {
  if (change_ || facts_) return;
  if (!permissions_.Change()) return Leave();
  closes_ = true;
  Apply();
}

void PropertiesWindow::reject() {
  Leave();
}

void PropertiesWindow::Cancel() {
  left_ = true;
  if (count_) count_->Cancel();
  if (facts_) facts_->Cancel();
  if (change_) change_->Cancel();
}

bool PropertiesWindow::EndWork() {
  EndIfDone(count_);
  EndIfDone(facts_);
  EndIfDone(change_);
  return !count_ && !facts_ && !change_;
}

// A disk that does not answer keeps a thread, but not the window.
void PropertiesWindow::Leave() {
  if (left_) return;
  hide();
  Cancel();
  tick_.start(0);
}

}  // namespace tarnwell::ui
