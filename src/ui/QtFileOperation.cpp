#include "ui/QtFileOperation.h"

#include <system_error>

namespace tarnwell::ui {

platform::OperationResult QtFileOperation::Run(const platform::OperationRequest& request) {
  if (session_ != nullptr) {
    return {.Code = static_cast<int>(std::errc::device_or_resource_busy), .Aborted = true};
  }
  struct Clear {
    OperationSession*& Session;
    ~Clear() { Session = nullptr; }
  };
  OperationSession session(request, tools_);
  session_ = &session;
  const Clear clear{session_};
  return session.Run(engine_);
}

}  // namespace tarnwell::ui
