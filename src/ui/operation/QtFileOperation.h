// Runs file operations on a thread of their own, while the windows stay alive: shows the progress
// and asks the questions.
#pragma once

#include <functional>
#include <utility>

#include "platform/FileOperation.h"
#include "ui/operation/OperationSession.h"

namespace tarnwell::ui {

// As platform::FileOperation::Refusal.
using OperationRefusal =
    std::function<std::string(platform::FileFunction function, const std::string& items)>;

class QtFileOperation : public platform::FileOperation {
 public:
  QtFileOperation(OperationEngine engine, OperationRefusal refusal, const OperationTools& tools)
      : engine_(std::move(engine)), refusal_(std::move(refusal)), tools_(tools) {}

  // No other window takes input until it returns; closing one of them cancels the operation, and
  // closes the window after it. A call during another one does nothing, and comes back as aborted.
  // When the program is asked to end, the operation is cancelled and its end awaited.
  platform::OperationResult Run(const platform::OperationRequest& request) override;

  std::string Refusal(platform::FileFunction function, const std::string& items) const override {
    return refusal_(function, items);
  }

  // Cancels what runs, and calls `then` from the event loop once Run has returned; at once while
  // nothing runs.
  void CancelThen(std::function<void()> then);

  // For an end that leaves no time for windows: when it returns nothing runs any more, and no half
  // file is left. Does nothing while nothing runs.
  void CancelAndWait() {
    if (session_ != nullptr) session_->CancelAndWait();
  }

 private:
  const OperationEngine engine_;
  const OperationRefusal refusal_;
  const OperationTools tools_;
  OperationSession* session_ = nullptr;  // the one that runs
  std::function<void()> then_;
};

}  // namespace tarnwell::ui
