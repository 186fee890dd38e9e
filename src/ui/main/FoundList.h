// The list of what was found, in the window that finds files: it works as those of the panes do.
#pragma once

#include <QDialog>
#include <QMainWindow>

#include "shell/Master.h"
#include "ui/list/ListerWidget.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class FoundList : public ListerWidget {
 public:
  // `main` is the main window, which pops up the context menu.
  FoundList(shell::Master& master, const IconSource& icons, QDialog& window, QMainWindow& main);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Where the list is, as the main window reckons places.
  void NotePlace();

  lister::ListerControl& control_;
  QMainWindow& main_;
};

}  // namespace tarnwell::ui
