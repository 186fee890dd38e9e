// The window of the acknowledgements.
#pragma once

#include <QDialog>
#include <QPushButton>

#include "shell/frmAcknow.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/ReadOnlyText.h"

namespace tarnwell::ui {

class AcknowWindow : public QDialog, public FormWindow {
 public:
  explicit AcknowWindow(shell::frmAcknow& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape, and the frame's close button

 private:
  ReadOnlyText* AddText(const QString& name);

  shell::frmAcknow& form_;
  ReadOnlyText* acknowledgement_;
  ReadOnlyText* libraries_;
  ReadOnlyText* disclaimer_;
  QPushButton* close_;
};

}  // namespace tarnwell::ui
