// The main window: menu bar, toolbar and panes, placed as the form's state says.
//
// Shows the state and passes on what the user does; has no layout of its own.
#pragma once

#include <QMainWindow>
#include <QShortcut>
#include <array>
#include <map>
#include <memory>
#include <optional>

#include "shell/Master.h"
#include "ui/list/ListerWidget.h"
#include "ui/main/CommandStrip.h"
#include "ui/main/DragBar.h"
#include "ui/main/FocusKeeper.h"
#include "ui/main/FormSurface.h"
#include "ui/main/KeyShortcuts.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MainToolbar.h"
#include "ui/main/NoRoomLabel.h"
#include "ui/main/OtherWindows.h"
#include "ui/main/PaneTitle.h"
#include "ui/operation/OperationViews.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/IconSource.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {

class MainWindow : public QMainWindow, public FormWindow {
 public:
  MainWindow(shell::Master& master, const IconSource& icons, OperationViews& operations);
  ~MainWindow() override;

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override {}
  void Show(QWidget* owner) override;

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BindKeys();
  FormSurface::Actions SurfaceActions();
  void NotePlace();
  void NoteWholeScreen();
  void NoteState();
  void InsideResized();
  void NoteFocus();
  void TakeKeyboard();
  void EnterControls(lister::ListId (*listOf)(int));  // of the active pane's list
  void LayOutStrip();
  void LeaveOperations();
  bool IsRows(const QWidget* widget) const;  // of a list, where its keys go
  bool HasKeyboard(lister::ListId list) const;
  QWidget* Typist() const;
  void SyncToolbar();
  void SyncColours();
  void SyncPane(int pane);
  void SyncList(lister::ListId list);
  void SyncShapes();
  void SyncDrag();
  void SyncPresence();

  shell::Master& master_;
  workspace::MainForm& form_;
  const IconSource& icons_;
  OperationViews& operations_;
  MainMenu menu_;
  FormSurface* surface_;
  const bool placesWindows_;  // Wayland keeps it to itself where windows stand
  FocusKeeper* keeper_;
  MainToolbar* toolbar_;
  QShortcut* escape_;
  KeyShortcuts shortcuts_;
  CommandStrip strip_;
  workspace::PerPane<PaneTitle*> titles_;
  workspace::PerList<NoRoomLabel*> noRoom_;
  std::map<lister::ListId, std::unique_ptr<ListerWidget>> lists_;
  std::array<DragBar*, 4> bars_{};
  OtherWindows others_;
  bool isAway_ = false;  // hidden, in the notification area
  std::optional<PaletteColours> skin_;
  ApplicationColours programColours_;
  WidgetColours menuColours_;
  workspace::PerList<WidgetColours> noRoomColours_;
};

}  // namespace tarnwell::ui
