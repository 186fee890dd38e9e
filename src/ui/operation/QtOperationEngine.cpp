#include "ui/operation/QtOperationEngine.h"

#include <QEventLoop>
#include <QTimer>
#include <utility>

#include "ui/operation/QtOperationRun.h"

namespace tarnwell::ui {
namespace {

// Below what anyone notices.
constexpr int SettleTime = 40;  // milliseconds

}  // namespace

QtOperationEngine::QtOperationEngine(OperationSystem system, const OperationTools& tools)
    : system_(std::move(system)), tools_(tools), input_(tools.Clock) {}

QtOperationEngine::~QtOperationEngine() = default;

std::unique_ptr<platform::OperationRun> QtOperationEngine::Start(
    const platform::OperationRequest& request, platform::OperationListener& listener) {
  std::erase_if(works_, [](const auto& each) { return each.expired(); });
  const auto work =
      std::make_shared<OperationWork>(request, tools_.Syntax, tools_.Clock, system_.IsFar);
  works_.push_back(work);
  newest_ = work;
  auto run = std::make_unique<QtOperationRun>(work, tools_, input_, listener);
  work->Start(system_, running_);
  return run;
}

void QtOperationEngine::Settle(const std::function<bool()>& isDone) {
  // Only what a command has just started is settled.
  if (const auto work = newest_.lock()) work->NoteWanted();
  QEventLoop loop;
  bool isOver = false;
  QTimer::singleShot(SettleTime, &loop, [&isOver] { isOver = true; });
  while (!isOver && !isDone()) {
    loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
  }
}

void QtOperationEngine::CancelAndWait() {
  for (const auto& each : works_) {
    if (const auto work = each.lock()) work->Leave();
  }
  for (const auto& each : works_) {
    if (const auto work = each.lock()) work->Wait();
  }
}

}  // namespace tarnwell::ui
