// The window of the help: labels on a white page, placed as the form says, and a bar that moves it.
// The keyboard is the page's until Tab leads it to the button in the upper right corner.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <array>

#include "tools/frmHelp.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class HelpWindow : public QDialog, public FormWindow {
 public:
  explicit HelpWindow(tools::frmHelp& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void reject() override;  // Escape, and the frame's close button

 private:
  void SyncTexts();
  void SyncBar();
  int FreeRight() const;
  void LayOut();

  tools::frmHelp& form_;
  QWidget* page_;
  std::array<QLabel*, tools::HelpPartCount> labels_{};
  QPushButton* guide_;
  QScrollBar* bar_;
};

}  // namespace tarnwell::ui
