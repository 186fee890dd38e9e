// One file operation from its start to its end, as the user sees it: the engine on a thread of its
// own, the window of its progress, its questions, and the lock on all other windows.
#pragma once

#include <QEventLoop>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "fileops/OperationMeter.h"
#include "ui/operation/OperationMailbox.h"
#include "ui/operation/OperationTools.h"
#include "ui/operation/OperationWork.h"
#include "ui/operation/ProgressWindow.h"
#include "ui/operation/QuestionWindow.h"
#include "ui/toolkit/InputLock.h"

namespace tarnwell::ui {

// Does the work of one request on the thread that calls it, and returns when it is done.
using OperationEngine = std::function<platform::OperationResult(const platform::OperationRequest&,
                                                                platform::OperationUser&)>;

class OperationSession : public QObject {
 public:
  OperationSession(const platform::OperationRequest& request, const OperationTools& tools,
                   FarTest isFar, OperationCount running);
  ~OperationSession() override;

  // Returns when the engine is done, and lets events through until then. What the engine throws
  // comes out here. One that another machine keeps after it was cancelled is left to itself: it
  // counts as aborted. To be called once.
  platform::OperationResult Run(const OperationEngine& engine);
  // These two while Run runs only; nothing is shown after them. The first returns at once.
  void Cancel();
  // Waits for the engine, unless it is to be left, without letting events through.
  void CancelAndWait();

 private:
  struct Work;

  void Start(const OperationEngine& engine);
  bool IsKept() const;
  void Pause(bool on);
  void GiveUp();
  void End();
  void Tick();
  void ShowProgress();
  void ShowQuestion();
  void TakeAnswer(const OperationAnswer& answer);
  void CloseQuestion();
  void LeaveQuietTime();
  void SetPointer(Qt::CursorShape shape);
  bool IsSilent() const { return (request_.Flags & platform::Silent) != 0; }
  fileops::OperationMeter::Ticks Now() const { return tools_.Clock.Ticks(); }

  const platform::OperationRequest request_;
  const OperationTools tools_;
  const FarTest isFar_;
  const OperationCount running_;
  const std::shared_ptr<Work> work_;  // the engine's too
  OperationMailbox& mailbox_;
  fileops::OperationMeter meter_;
  QPointer<QWidget> owner_;
  QTimer tick_;
  QTimer untilShown_;
  std::unique_ptr<ProgressWindow> progress_;
  std::unique_ptr<QuestionWindow> question_;
  std::optional<InputLock> lock_;
  QEventLoop loop_;
  bool quiet_ = true;  // nothing has been shown yet, and input waits rather than be lost
  bool paused_ = false;
  bool ended_ = false;
  bool pointerSet_ = false;
  fileops::OperationMeter::Ticks cancelledAt_ = 0;
  std::future<platform::OperationResult> result_;
};

}  // namespace tarnwell::ui
