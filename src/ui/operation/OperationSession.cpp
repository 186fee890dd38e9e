#include "ui/operation/OperationSession.h"

#include <QApplication>
#include <utility>
#include <variant>

#include "ui/operation/OperationQuestions.h"
#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {
namespace {

// Work that is done sooner shows no window.
constexpr int QuietTime = 500;  // milliseconds
constexpr int TickTime = 250;

// The window may be in the middle of one of its own events.
template <typename Window>
void Discard(std::unique_ptr<Window>& window) {
  if (!window) return;
  window->hide();
  window.release()->deleteLater();
}

}  // namespace

OperationSession::OperationSession(const platform::OperationRequest& request,
                                   const OperationTools& tools)
    : request_(request),
      tools_(tools),
      mailbox_(tools.Syntax,
               [this] {
                 QMetaObject::invokeMethod(
                     this, [this] { ShowQuestion(); }, Qt::QueuedConnection);
               }),
      owner_(WindowInUse()) {
  tick_.setInterval(TickTime);
  connect(&tick_, &QTimer::timeout, this, [this] { Tick(); });
  untilShown_.setSingleShot(true);
  untilShown_.setInterval(QuietTime);
  connect(&untilShown_, &QTimer::timeout, this, [this] { ShowProgress(); });
}

platform::OperationResult OperationSession::Run(const OperationEngine& engine) {
  result_ = std::async(std::launch::async, [this, &engine] {
    const auto end = [this] {
      QMetaObject::invokeMethod(
          this, [this] { End(); }, Qt::QueuedConnection);
    };
    try {
      platform::OperationResult result = engine(request_, mailbox_);
      mailbox_.TellRemarks();
      end();
      return result;
    } catch (...) {
      end();
      throw;
    }
  });
  lock_.emplace([this] { Cancel(); });
  meter_.Note(Now(), 0, 0);
  tick_.start();
  untilShown_.start();
  // What is typed during work that takes no time is for what comes after it.
  loop_.exec(QEventLoop::ExcludeUserInputEvents);
  if (!ended_) loop_.exec();
  if (!ended_) {
    // The whole program has been asked to end, and no loop runs any more.
    mailbox_.Leave();
    result_.wait();
    End();
  }
  return result_.get();
}

void OperationSession::CancelAndWait() {
  mailbox_.Leave();
  if (result_.valid()) result_.wait();
}

void OperationSession::Cancel() {
  mailbox_.Leave();
  GiveUp();
}

void OperationSession::GiveUp() {
  mailbox_.Cancel();
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
