// The window that tells of a newer version of the program.
#pragma once

#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>

#include "tools/frmUpdate.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class UpdateWindow : public QDialog, public FormWindow {
 public:
  explicit UpdateWindow(tools::frmUpdate& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape, and the frame's close button

 private:
  tools::frmUpdate& form_;
  QPlainTextEdit news_;
  QPushButton update_;
  QPushButton pass_;
};

}  // namespace tarnwell::ui
