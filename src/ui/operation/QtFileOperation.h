// Runs file operations on a thread of their own, while the windows stay alive: shows the progress
// and asks the questions.
#pragma once

#include <functional>
#include <utility>

#include "platform/FileOperation.h"
#include "ui/operation/OperationSession.h"

namespace tarnwell::ui {

class QtFileOperation : public platform::FileOperation {
 public:
  QtFileOperation(OperationEngine engine, OperationRefusal refusal, const OperationTools& tools,
                  FarTest isFar = {})
      : engine_(std::move(engine)),
        refusal_(std::move(refusal)),
        tools_(tools),
        isFar_(std::move(isFar)) {}

  // No other window takes input until it returns; closing one of them cancels the operation, and
  // closes the window after it. A call during another one does nothing, and comes back as aborted.
  // When the program is asked to end, the operation is cancelled and its end awaited. One that is
  // cancelled while another machine keeps it is left to itself.
  platform::OperationResult Run(const platform::OperationRequest& request);
  platform::OperationId Start(platform::OperationOrder order) override;
  void WhenDone(platform::OperationId operation, platform::OperationDone then) override;
  void NoteDone(platform::CommandKind, const std::vector<platform::PlacedItem>&) override {}

  std::string Refusal(platform::FileFunction function, const std::string& items) const override {
    return refusal_(function, items);
  }

  // Cancels what runs, and calls `then` from the event loop once Run has returned; at once while
  // nothing runs.
  void CancelThen(std::function<void()> then);

  // For an end that leaves no time for windows: when it returns nothing runs any more but what
  // another machine keeps, and no half file is left. Does nothing while nothing runs.
  void CancelAndWait() {
    if (session_ != nullptr) session_->CancelAndWait();
  }

  // Whether operations still run that were left to themselves.
  bool AnyLeft() const { return *running_ > 0; }

 private:
  const OperationEngine engine_;
  const OperationRefusal refusal_;
  const OperationTools tools_;
  const FarTest isFar_;
  const OperationCount running_ = std::make_shared<std::atomic<int>>(0);
  OperationSession* session_ = nullptr;  // the one that runs
  std::function<void()> then_;
  platform::OperationId last_ = platform::NoOperation;
  platform::OperationResult result_;  // of the last one
};

}  // namespace tarnwell::ui
