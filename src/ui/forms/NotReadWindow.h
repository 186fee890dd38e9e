// The window with what a search could not read.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "tools/popNotRead.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class NotReadWindow : public QDialog, public FormWindow {
 public:
  explicit NotReadWindow(tools::popNotRead& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape, and the frame's close button

 private:
  tools::popNotRead& form_;
  QLabel* count_;
  QPlainTextEdit* items_;
  QPushButton* copy_;
  QPushButton* close_;
};

}  // namespace tarnwell::ui
