#include "ui/operation/QtFileOperation.h"

#include <QApplication>
#include <system_error>

namespace tarnwell::ui {

platform::OperationResult QtFileOperation::Run(const platform::OperationRequest& request) {
  if (session_ != nullptr) {
    return {.Code = static_cast<int>(std::errc::device_or_resource_busy), .Aborted = true};
  }
  struct Ending {
    QtFileOperation& Of;
    ~Ending() {
      Of.session_ = nullptr;
      if (!Of.then_) return;
      QMetaObject::invokeMethod(qApp, std::exchange(Of.then_, nullptr), Qt::QueuedConnection);
    }
  };
  OperationSession session(request, tools_, isFar_, running_);
  session_ = &session;
  const Ending ending{*this};
  return session.Run(engine_);
}

platform::OperationId QtFileOperation::Start(platform::OperationOrder order) {
  platform::OperationResult all;
  for (const platform::OperationRequest& request : order.Requests) {
    platform::Add(all, Run(request));
    if (all.Aborted) break;
  }
  result_ = std::move(all);
  return ++last_;
}

void QtFileOperation::WhenDone(platform::OperationId operation, platform::OperationDone then) {
  then(operation == last_ ? result_ : platform::OperationResult());
}

void QtFileOperation::CancelThen(std::function<void()> then) {
  if (session_ == nullptr) {
    then();
    return;
  }
  then_ = std::move(then);
  session_->Cancel();
}

}  // namespace tarnwell::ui
