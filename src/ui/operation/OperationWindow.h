// The window of all operations, for those who do not want them below the panes, and for the time
// after the main window has been closed.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "ui/operation/OperationList.h"

namespace tarnwell::ui {

class OperationWindow : public QDialog {
 public:
  struct Actions {
    std::function<void()> Leave;    // the keyboard goes back to the main window
    std::function<void()> Dismiss;  // by the frame's close button
    std::function<void()> Shown;
  };
  OperationWindow(fileops::OperationQueue& queue, const OperationTools& tools, Actions actions);

  OperationList& List() { return *list_; }
  void Show(const std::vector<const fileops::OperationRecord*>& records);
  // Over the lower right corner of the owner, which may be null; the first time only. The keyboard
  // stays where it is.
  void Open(QWidget* owner);

 protected:
  void reject() override { actions_.Leave(); }  // Escape
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Fit();

  const Actions actions_;
  OperationList* list_;
  const platform::NumberForms& forms_;
  bool isPlaced_ = false;
};

}  // namespace tarnwell::ui
