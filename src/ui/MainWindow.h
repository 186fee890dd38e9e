// The main window: menu bar, toolbar and panes, placed as the form's state says.
//
// Shows the state and passes on what the user does; has no layout of its own.
#pragma once

#include <QMainWindow>
#include <array>
#include <map>
#include <memory>
#include <string>

#include "shell/Master.h"
#include "ui/FormWindow.h"
#include "ui/IconSource.h"
#include "ui/ListerWidget.h"
#include "ui/PaneTitle.h"

class QAction;
class QFrame;
class QMenu;
class QToolBar;

namespace tarnwell::ui {

class MainWindow : public QMainWindow, public FormWindow {
 public:
  MainWindow(shell::Master& master, const IconSource& icons);
  ~MainWindow() override;

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override {}
  void Show(QWidget* owner) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  void BuildToolbar();
  void NotePlace();
  void AreaResized();
  void SyncMenus();
  void SyncToolbar();
  bool IsSkinned() const;
  void SyncColours();
  void MoveFocusFromClosed();
  void GiveFocusToActive();
  void SyncPane(int pane);
  void SyncList(lister::ListId list);

  shell::Master& master_;
  workspace::MainForm& form_;
  const IconSource& icons_;
  QWidget* area_;
  QToolBar* toolbar_;
  std::map<std::string, QAction*> menuActions_;  // by the name of the entry
  std::map<std::string, QAction*> buttons_;      // by the key of the button
  std::array<QFrame*, lister::PaneCount> backs_{};
  std::array<PaneTitle*, lister::PaneCount> titles_{};
  std::map<lister::ListId, std::unique_ptr<ListerWidget>> lists_;
};

}  // namespace tarnwell::ui
