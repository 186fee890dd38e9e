// The window of the splash.
#pragma once

#include <QIcon>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include "shell/Splash.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class SplashWindow : public QWidget, public FormWindow {
 public:
  SplashWindow(shell::Splash& form, const QIcon& icon);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Tick();

  shell::Splash& form_;
  QTimer timer_;
  bool ticking_ = false;
  QLabel picture_;
  QLabel title_;
  QLabel version_;
  QLabel status_;
};

}  // namespace tarnwell::ui
