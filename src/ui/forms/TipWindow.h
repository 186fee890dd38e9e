// The window of the tip of the day.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "tools/frmTip.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class TipWindow : public QDialog, public FormWindow {
 public:
  TipWindow(tools::frmTip& form, const IconSource& icons);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void reject() override;  // Escape, and the frame's close button

 private:
  QWidget* NewSheet();
  QLayout* NewButtonRow();
  void GiveLettersRoom();
  static void SyncButton(QPushButton& widget, const forms::Button& button);

  tools::frmTip& form_;
  QIcon icon_;
  QLabel* picture_ = nullptr;
  QLabel* heading_ = nullptr;
  QPlainTextEdit* text_ = nullptr;
  QCheckBox* atStartup_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace tarnwell::ui
