// Says that another machine is waited for, and lets the user give up.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

namespace tarnwell::ui {

class WaitWindow : public QDialog {
 public:
  // `cancel` runs by the button, by Escape and by closing the window.
  WaitWindow(const std::string& place, std::function<void()> cancel);

  void reject() override { cancel_(); }

 private:
  const std::function<void()> cancel_;
};

}  // namespace tarnwell::ui
