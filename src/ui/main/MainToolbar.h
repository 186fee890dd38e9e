// The toolbar of the main window: shows the buttons behind which a command stands. One stop for
// Tab; from there the arrows lead from button to button.
#pragma once

#include <QToolBar>
#include <map>
#include <string>

#include "shell/Master.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class MainToolbar : public QToolBar {
 public:
  static constexpr int Height = 29;  // the titles of the first panes begin below it

  MainToolbar(shell::Master& master, const IconSource& icons, QWidget* parent);

  // What shows its button already is not touched. The place is the window's affair.
  void Sync();

 protected:
  bool event(QEvent* event) override;
  // Of the buttons.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void MoveKeyboard(const QObject* from, int step);

  shell::Master& master_;
  const IconSource& icons_;
  struct Button {
    QAction* Action = nullptr;
    std::string Image;  // key of the picture on show
  };
  std::map<std::string, Button> buttons_;  // by the keys of the form's
};

}  // namespace tarnwell::ui
