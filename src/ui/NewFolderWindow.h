// The window that asks for the name of a new folder.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "fileops/popNewFolder.h"
#include "ui/FormWindow.h"

namespace tarnwell::ui {

class NewFolderWindow : public QDialog, public FormWindow {
 public:
  explicit NewFolderWindow(fileops::popNewFolder& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape, and the frame's close button

 private:
  fileops::popNewFolder& form_;
  QLabel folderLabel_;
  QLineEdit folder_;
  QLabel nameLabel_;
  QLineEdit name_;
  QPushButton create_;
  QPushButton cancel_;
};

}  // namespace tarnwell::ui
