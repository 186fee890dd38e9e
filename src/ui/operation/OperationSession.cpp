#include "ui/operation/OperationSession.h"

#include <QApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>
#include <variant>

#include "base/ItemList.h"
#include "ui/operation/OperationQuestions.h"
#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {
namespace {

// Work that is done sooner shows no window.
constexpr int QuietTime = 500;  // milliseconds
constexpr int TickTime = 250;
// So long an operation that was cancelled may take to come to its end on another machine.
constexpr fileops::OperationMeter::Ticks LastWord = 3000;

// The window may be in the middle of one of its own events.
template <typename Window>
void Discard(std::unique_ptr<Window>& window) {
  if (!window) return;
  window->hide();
  window.release()->deleteLater();
}

}  // namespace

// What the engine has of its session, and keeps when that leaves it.
struct OperationSession::Work {
  Work(const platform::OperationRequest& request, const base::PathSyntax& syntax,
       OperationSession& session)
      : Request(request),
        Mailbox(syntax, [this] { Tell(&OperationSession::ShowQuestion); }),
        Session(&session) {}

  void Tell(void (OperationSession::*what)()) {
    const std::lock_guard lock(Mutex);
    OperationSession* const session = Session;
    if (session == nullptr) return;
    QMetaObject::invokeMethod(
        session, [session, what] { (session->*what)(); }, Qt::QueuedConnection);
  }

  const platform::OperationRequest Request;
  OperationMailbox Mailbox;
  std::mutex Mutex;
  OperationSession* Session;  // null once it has gone
};

OperationSession::OperationSession(const platform::OperationRequest& request,
                                   const OperationTools& tools, FarTest isFar,
                                   OperationCount running)
    : request_(request),
      tools_(tools),
      isFar_(std::move(isFar)),
      running_(std::move(running)),
      work_(std::make_shared<Work>(request, tools.Syntax, *this)),
      mailbox_(work_->Mailbox),
      owner_(WindowInUse()) {
  tick_.setInterval(TickTime);
  connect(&tick_, &QTimer::timeout, this, [this] { Tick(); });
  untilShown_.setSingleShot(true);
  untilShown_.setInterval(QuietTime);
  connect(&untilShown_, &QTimer::timeout, this, [this] { ShowProgress(); });
}

OperationSession::~OperationSession() {
  const std::lock_guard lock(work_->Mutex);
  work_->Session = nullptr;
}

void OperationSession::Start(const OperationEngine& engine) {
  std::promise<platform::OperationResult> promise;
  result_ = promise.get_future();
  ++*running_;
  std::thread([work = work_, engine, running = running_, done = std::move(promise)]() mutable {
    try {
      platform::OperationResult result = engine(work->Request, work->Mailbox);
      work->Mailbox.TellRemarks();
      done.set_value(std::move(result));
    } catch (...) {
      done.set_exception(std::current_exception());
    }
    --*running;
    work->Tell(&OperationSession::End);
  }).detach();
}

platform::OperationResult OperationSession::Run(const OperationEngine& engine) {
  Start(engine);
  lock_.emplace([this] { Cancel(); });
  meter_.Note(Now(), 0, 0);
  tick_.start();
  untilShown_.start();
  // What is typed during work that takes no time is for what comes after it.
  loop_.exec(QEventLoop::ExcludeUserInputEvents);
  if (!ended_) loop_.exec();
  if (!ended_) {
    // The whole program has been asked to end, and no loop runs any more.
    CancelAndWait();
    End();
  }
  if (result_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) return result_.get();
  return {.Code = static_cast<int>(std::errc::timed_out), .Aborted = true};
}

void OperationSession::CancelAndWait() {
  mailbox_.Leave();
  if (!result_.valid()) return;
  if (cancelledAt_ == 0) cancelledAt_ = Now();
  const auto isDone = [this] {
    return result_.wait_for(std::chrono::milliseconds(TickTime)) == std::future_status::ready;
  };
  while (!isDone() && !IsKept()) continue;
}

// Cancelled, and held up by another machine. A disk of this one is waited for.
bool OperationSession::IsKept() const {
  if (!isFar_ || cancelledAt_ == 0 || Now() - cancelledAt_ < LastWord) return false;
  const ProgressReport report = mailbox_.Progress();
  const std::string target = request_.Destination.substr(0, request_.Destination.find('\0'));
  return std::ranges::any_of(
      std::array{report.From, report.To, std::string(*base::ItemList(request_.Items).begin()),
                 target},
      isFar_);
}

void OperationSession::Cancel() {
  mailbox_.Leave();
  GiveUp();
}

void OperationSession::GiveUp() {
  mailbox_.Cancel();
  if (cancelledAt_ == 0) cancelledAt_ = Now();
  CloseQuestion();
  if (progress_) progress_->ShowCancelling();
}

void OperationSession::Pause(bool on) {
  paused_ = on;
  on ? meter_.Pause(Now()) : meter_.Continue(Now());
  mailbox_.Pause(on);
}

void OperationSession::End() {
  if (std::exchange(ended_, true)) return;
  tick_.stop();
  untilShown_.stop();
  lock_->Release();
  Discard(question_);
  Discard(progress_);
  if (pointerSet_) QApplication::restoreOverrideCursor();
  loop_.quit();
}

// --- Progress

void OperationSession::Tick() {
  const ProgressReport report = mailbox_.Progress();
  meter_.Note(Now(), report.Numbers.BytesDone, report.Numbers.ItemsDone);
  if (progress_) progress_->Show(report, meter_);
  if (!IsKept()) return;
  mailbox_.Leave();
  End();
}

void OperationSession::ShowProgress() {
  LeaveQuietTime();
  // Put away while it works, the program comes back for a question alone.
  if (owner_ && (!owner_->isVisible() || owner_->isMinimized())) {
    untilShown_.start();
    return;
  }
  if (IsSilent()) {
    SetPointer(Qt::WaitCursor);
    return;
  }
  progress_ = std::make_unique<ProgressWindow>(
      request_, tools_,
      ProgressWindow::Actions{.Pause = [this](bool on) { Pause(on); },
                              .Cancel = [this] { GiveUp(); }});
  if (mailbox_.IsCancelled()) progress_->ShowCancelling();
  Tick();
  lock_->Allow(progress_.get());
  if (QApplication::overrideCursor() != nullptr) SetPointer(Qt::ArrowCursor);
  ShowOver(*progress_, owner_);
}

void OperationSession::LeaveQuietTime() {
  if (std::exchange(quiet_, false)) loop_.quit();
}

// Over that of the command that waits for the operation.
void OperationSession::SetPointer(Qt::CursorShape shape) {
  if (std::exchange(pointerSet_, true)) {
    QApplication::changeOverrideCursor(shape);
  } else {
    QApplication::setOverrideCursor(shape);
  }
}

// --- Questions

void OperationSession::ShowQuestion() {
  const std::optional<OperationQuestion> question = mailbox_.TakeQuestion();
  if (!question) return;
  // All is over but for this.
  if (std::holds_alternative<RemarksQuestion>(*question)) Discard(progress_);
  LeaveQuietTime();
  untilShown_.stop();
  meter_.Pause(Now());
  question_ = std::visit(
      [this](const auto& each) {
        return WindowOf(each, tools_,
                        [this](const OperationAnswer& answer) { TakeAnswer(answer); });
      },
      *question);
  lock_->Allow(question_.get());
  if (QApplication::overrideCursor() != nullptr) SetPointer(Qt::ArrowCursor);
  ShowOver(*question_, progress_ ? progress_.get() : owner_.data());
}

void OperationSession::TakeAnswer(const OperationAnswer& answer) {
  CloseQuestion();
  mailbox_.Answer(answer);
}

void OperationSession::CloseQuestion() {
  if (!question_) return;
  Discard(question_);
  lock_->Allow(progress_.get());
  if (!paused_) meter_.Continue(Now());
  if (!progress_) untilShown_.start();
}

}  // namespace tarnwell::ui
