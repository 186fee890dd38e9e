// The window of a running file operation: what is being done, how far it has come, how long it will
// yet take; pauses and cancels.
#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <functional>
#include <optional>

#include "fileops/OperationMeter.h"
#include "platform/FileOperation.h"
#include "ui/operation/OperationMailbox.h"
#include "ui/operation/OperationTools.h"
#include "ui/toolkit/ElidedLabel.h"

namespace tarnwell::ui {

class ProgressWindow : public QDialog {
 public:
  struct Actions {
    std::function<void(bool on)> Pause;
    std::function<void()> Cancel;
  };

  ProgressWindow(const platform::OperationRequest& request, const OperationTools& tools,
                 Actions actions);

  // To be called some times a second.
  void Show(const ProgressReport& report, const fileops::OperationMeter& meter);
  // The operation has been cancelled and comes to its end.
  void ShowCancelling();

 protected:
  void reject() override;  // Escape, and the frame's close button

 private:
  ElidedLabel& AddPath(QGridLayout& grid, const QString& caption);
  void ShowNames(const ProgressReport& report);
  void ShowBar(const platform::OperationProgress& progress);
  void ShowSpeed(const platform::OperationProgress& progress, const fileops::OperationMeter& meter);
  void TogglePause();

  const OperationTools tools_;
  const Actions actions_;
  const QString verb_;
  ElidedLabel* name_ = nullptr;  // the three are null where names are not to be shown
  ElidedLabel* from_ = nullptr;
  ElidedLabel* to_ = nullptr;  // null for a delete as well
  QProgressBar bar_;
  QLabel bytes_;
  QLabel items_;
  QLabel speed_;
  QLabel left_;
  QPushButton pause_;
  QPushButton cancel_;
  int shown_ = 0;  // how often
  bool paused_ = false;
  bool cancelling_ = false;
};

}  // namespace tarnwell::ui
