// Where the operations are shown: below the panes, or in a window of their own.
//
// Follows the owner of operations and decides nothing for it.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "fileops/OperationQueue.h"
#include "ui/operation/OperationStrip.h"
#include "ui/operation/OperationTools.h"
#include "ui/operation/OperationWindow.h"

namespace tarnwell::ui {

class OperationViews : public QObject {
 public:
  // `wantsWindow` tells what people have chosen; it holds as long as there is a main window, and
  // without one there is no strip. To be made once for the queue.
  OperationViews(fileops::OperationQueue& queue, const OperationTools& tools,
                 std::function<bool()> wantsWindow);

  // The strip for the main window, which it is to be laid out in; goes with that. `leave` gives the
  // keyboard back to the panes, `changed` is called when a question begins or ceases to wait.
  QWidget* MakeStrip(QWidget& main, std::function<void()> leave, std::function<void()> changed);

  // A question waits for its answer.
  bool AnyAsks() const { return anyAsks_; }
  // The keyboard goes to the operations, wherever they are, or back from there. Nothing without
  // operations to show.
  void EnterOrLeave();
  // Shows at once what would be shown soon.
  void Refresh();

 private:
  using Records = std::vector<const fileops::OperationRecord*>;

  Records TakeShown();
  void RefreshSoon();
  void ShowWindow(const Records& records);
  void Dismiss();
  void Leave();

  fileops::OperationQueue& queue_;
  const OperationTools tools_;
  const std::function<bool()> wantsWindow_;
  QPointer<QWidget> main_;
  QPointer<OperationStrip> strip_;
  std::function<void()> leave_;
  std::function<void()> changed_;
  std::unique_ptr<OperationWindow> window_;  // made when it is first needed
  bool isAlone_ = false;                     // the window has outlived the main window
  platform::OperationId dismissed_ = platform::NoOperation;  // the newest when it was closed
  std::vector<platform::OperationId> shown_;                 // as by now
  bool anyAsks_ = false;
  QTimer refresh_;
};

}  // namespace tarnwell::ui
