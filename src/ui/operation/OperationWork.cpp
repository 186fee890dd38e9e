#include "ui/operation/OperationWork.h"

#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

#include "base/ItemList.h"

namespace tarnwell::ui {
namespace {

// So long an operation that was cancelled may take to come to its end on another machine.
constexpr std::int64_t FarLastWord = 3000;  // milliseconds
constexpr std::chrono::milliseconds LookTime(100);

}  // namespace

OperationWork::OperationWork(const platform::OperationRequest& request,
                             const base::PathSyntax& syntax, const platform::Clock& clock,
                             FarTest isFar)
    : request_(request),
      clock_(clock),
      isFar_(std::move(isFar)),
      mailbox_(syntax, [this] { Wake(); }) {}

void OperationWork::Start(const OperationSystem& system, OperationCount running) {
  std::promise<platform::OperationResult> promise;
  result_ = promise.get_future();
  ++*running;
  std::thread([self = shared_from_this(), run = system.Run, count = std::move(running),
               done = std::move(promise)]() mutable {
    try {
      done.set_value(run(self->request_, self->mailbox_));
    } catch (...) {
      done.set_exception(std::current_exception());
    }
    --*count;
    self->Wake();
  }).detach();
}

void OperationWork::Wake() {
  QMetaObject::invokeMethod(
      qApp,
      [self = shared_from_this()] {
        if (self->watcher_ != nullptr) self->watcher_->Look();
      },
      Qt::QueuedConnection);
}

void OperationWork::Cancel() {
  mailbox_.Cancel();
  if (cancelledAt_ < 0) cancelledAt_ = clock_.Ticks();
}

void OperationWork::Leave() {
  mailbox_.Leave();
  Cancel();
}

bool OperationWork::IsDoneWithin(std::chrono::milliseconds time) const {
  return !result_.valid() || result_.wait_for(time) == std::future_status::ready;
}

bool OperationWork::IsDone() const {
  return IsDoneWithin(std::chrono::milliseconds(0));
}

bool OperationWork::IsKept() const {
  if (!isFar_ || cancelledAt_ < 0 || clock_.Ticks() - cancelledAt_ < FarLastWord) return false;
  const ProgressReport report = mailbox_.Progress();
  std::vector<std::string> paths{report.From, report.To,
                                 request_.Destination.substr(0, request_.Destination.find('\0'))};
  for (const std::string_view item : base::ItemList(request_.Items)) {
    paths.emplace_back(item);
    break;
  }
  return std::ranges::any_of(paths, isFar_);
}

void OperationWork::Wait() const {
  while (!IsDoneWithin(LookTime) && !IsKept()) continue;
}

}  // namespace tarnwell::ui
