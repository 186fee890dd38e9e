// The folder that commands run in, and the box in which they are typed.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <functional>
#include <string>

#include "workspace/MainForm.h"

namespace tarnwell::ui {

class CommandStrip {
 public:
  // Both are children of the area. `enter` runs what has been typed.
  CommandStrip(workspace::MainForm& form, QWidget& area, std::function<void()> enter);

  // `skinned`: the form's colours hold. What is typed goes into the form at once.
  void Sync(bool skinned);

  bool HoldsCommand(const QWidget* widget) const;

 private:
  workspace::MainForm& form_;
  QLineEdit* path_;
  QComboBox* command_;
  std::string shown_;  // of the command, as the form has it
};

}  // namespace tarnwell::ui
