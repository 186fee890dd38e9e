// The window of the program's message box.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <array>
#include <functional>

#include "shell/popMsgBox.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class MsgBoxWindow : public QDialog, public FormWindow {
 public:
  // `close` unloads the form without a button.
  MsgBoxWindow(shell::popMsgBox& form, const IconSource& icons, std::function<void()> close);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape, and the frame's close button

 private:
  shell::popMsgBox& form_;
  const IconSource& icons_;
  std::function<void()> close_;
  QPlainTextEdit text_;
  QLabel picture_;
  std::array<QPushButton, shell::popMsgBox::ButtonCount> buttons_;
};

}  // namespace tarnwell::ui
