#include "ui/operation/QtOperationRun.h"

#include <QApplication>
#include <exception>
#include <system_error>
#include <utility>
#include <variant>

#include "ui/operation/OperationQuestions.h"
#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {
namespace {

constexpr int ReportTime = 250;  // milliseconds
// A question that nobody has just asked for waits until the user has been idle for so long:
// somebody who types would answer it by accident.
constexpr std::int64_t Calm = 1500;  // milliseconds
// When a dialog closes, for a moment no window is active.
constexpr int MostOffers = 4;

void DiscardLater(QWidget* window) {
  if (window == nullptr) return;
  // It may be in the middle of one of its own events.
  window->hide();
  window->deleteLater();
}

void ShowRemarks(const OperationRemarks& remarks, const OperationTools& tools, bool withKeyboard) {
  const auto shown = std::make_shared<QPointer<QWidget>>();
  QuestionWindow* const window =
      WindowOf(remarks, tools, [shown] { DiscardLater(*shown); }).release();
  *shown = window;
  ShowOver(*window, WindowInUse(), withKeyboard);
  if (!withKeyboard) QApplication::alert(window);
}

}  // namespace

QtOperationRun::QtOperationRun(std::shared_ptr<OperationWork> work, const OperationTools& tools,
                               const InputWatch& input, platform::OperationListener& listener)
    : work_(std::move(work)),
      tools_(tools),
      input_(input),
      listener_(listener),
      inputs_(input.Count()) {
  work_->WatchedBy(this);
  tick_.setInterval(ReportTime);
  QObject::connect(&tick_, &QTimer::timeout, &tick_, [this] { Tick(); });
  tick_.start();
}

QtOperationRun::~QtOperationRun() {
  work_->WatchedBy(nullptr);
  if (!work_->IsDone()) work_->Leave();
  ForgetQuestion();
}

void QtOperationRun::Cancel() {
  work_->Cancel();
  ForgetQuestion();
  work_->Wake();
}

void QtOperationRun::Leave() {
  work_->Leave();
  ForgetQuestion();
  work_->Wake();
}

void QtOperationRun::Tick() {
  // The end is not for a call of the timer's, which may go with it.
  if (work_->IsKept()) work_->Wake();
  if (offers_ > 0) {
    --offers_;
    Offer();
  }
  listener_.OnProgress(work_->Mailbox().Progress());
}

void QtOperationRun::Look() {
  if (std::optional<OperationQuestion> question = work_->Mailbox().TakeQuestion()) {
    question_ = std::move(question);
    offers_ = MostOffers;
    SetAsking(true);
    Offer();
    if (window_ == nullptr) QApplication::alert(WindowInUse());
  }
  SetAsking(question_.has_value());
  if (work_->IsDone() || work_->IsKept()) End();
}

void QtOperationRun::SetAsking(bool on) {
  if (std::exchange(isAsking_, on) != on) listener_.OnAsking(on);
}

// --- Questions

bool QtOperationRun::MayComeUp() const {
  // From the notification area the program comes back for a question: there is nothing else to tell
  // of it.
  if (WindowInUse() == nullptr) return true;
  return QGuiApplication::applicationState() == Qt::ApplicationActive &&
         input_.Count() == inputs_ && (work_->IsWanted() || input_.IdleFor() >= Calm);
}

void QtOperationRun::Offer() {
  if (window_ == nullptr && MayComeUp()) ShowQuestion();
}

void QtOperationRun::ShowQuestion() {
  if (!question_) return;
  offers_ = 0;
  if (window_ != nullptr) {
    window_->raise();
    window_->activateWindow();
    return;
  }
  window_ = std::visit(
                [this](const auto& each) {
                  return WindowOf(each, tools_,
                                  [this](const OperationAnswer& answer) { TakeAnswer(answer); });
                },
                *question_)
                .release();
  window_->AddButton(QStringLiteral("Answer La&ter"), QuestionWindow::Role::Aside,
                     [this] { CloseQuestion(); });
  ShowOver(*window_, WindowInUse());
}

void QtOperationRun::CloseQuestion() {
  DiscardLater(window_);
  window_ = nullptr;
}

void QtOperationRun::ForgetQuestion() {
  CloseQuestion();
  question_.reset();
  offers_ = 0;
}

void QtOperationRun::TakeAnswer(const OperationAnswer& answer) {
  ForgetQuestion();
  // The next one is what the answer leads to.
  inputs_ = input_.Count();
  work_->NoteWanted();
  work_->Mailbox().Answer(answer);
  SetAsking(false);
}

// --- The end

void QtOperationRun::End() {
  tick_.stop();
  work_->WatchedBy(nullptr);
  ForgetQuestion();
  platform::OperationResult result{.Code = static_cast<int>(std::errc::timed_out), .Aborted = true};
  if (work_->IsDone()) {
    OperationRemarks remarks = work_->Mailbox().TakeRemarks();
    try {
      result = work_->Take();
    } catch (const std::exception& error) {
      result.Code = static_cast<int>(std::errc::io_error);
      remarks.Failure = error.what();
    }
    if (!remarks.IsEmpty()) {
      // By itself, whatever the end of the operation leads to.
      QMetaObject::invokeMethod(
          qApp,
          [remarks = std::move(remarks), tools = tools_, comesUp = MayComeUp()] {
            ShowRemarks(remarks, tools, comesUp);
          },
          Qt::QueuedConnection);
    }
  } else {
    work_->Leave();
  }
  listener_.OnDone(std::move(result));
}

}  // namespace tarnwell::ui
