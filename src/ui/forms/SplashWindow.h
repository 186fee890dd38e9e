// The window of the splash, and of the About box.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QIcon>
#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <vector>

#include "shell/Splash.h"
#include "ui/forms/GifPictures.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class SplashWindow : public QDialog, public FormWindow {
 public:
  SplashWindow(shell::Splash& form, const QIcon& icon);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QLayout* NewTexts();
  QLayout* NewButtons();
  QLabel* AddText(const QColor& ink, QBoxLayout& column);
  QLabel* AddLine(const forms::Label& shown, const QColor& ink, QBoxLayout& column);
  void AddLink(const forms::Label& shown, void (shell::Splash::*click)(), QBoxLayout& column);
  // The frame on show; null while there is none.
  const shell::GifImage* ShownImage() const;
  void Tick();

  shell::Splash& form_;
  const QIcon icon_;
  QTimer timer_;
  bool ticking_ = false;
  GifPictures pictures_;
  QRect shownImage_;
  QToolButton* close_;
  std::vector<std::function<void()>> syncs_;  // each brings one label up to the form
};

}  // namespace tarnwell::ui
