// The window that connects a place on the network.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <string>
#include <vector>

#include "tools/frmMapDrive.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class MapDriveWindow : public QDialog, public FormWindow {
 public:
  explicit MapDriveWindow(tools::frmMapDrive& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape
  void closeEvent(QCloseEvent* event) override;

 private:
  void LayOut();
  QPushButton* AddButton(void (tools::frmMapDrive::*click)());
  void SyncList();
  void SyncAddress();

  tools::frmMapDrive& form_;
  QLabel* kindLabel_;
  QComboBox* kind_;
  QLabel* addressLabel_;
  QLineEdit* address_;
  QLabel* example_;
  QLabel* placesLabel_;
  QListWidget* places_;
  QLabel* status_;
  QPushButton* forget_;
  QPushButton* connect_;
  QPushButton* cancel_;
  std::vector<std::string> shownKinds_;
  std::vector<std::string> shownPlaces_;
  std::string shownAddress_;  // what the edit stands for
};

}  // namespace tarnwell::ui
