// The window that lists what is mounted from elsewhere.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include "tools/frmDisconnect.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class DisconnectWindow : public QDialog, public FormWindow {
 public:
  explicit DisconnectWindow(tools::frmDisconnect& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;

 private:
  void SyncList();

  tools::frmDisconnect& form_;
  QLabel* label_;
  QTreeWidget* places_;
  QLabel* status_;
  QPushButton* disconnect_;
  QPushButton* close_;
};

}  // namespace tarnwell::ui
