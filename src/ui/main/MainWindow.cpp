#include "ui/main/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "lister/list/ListInput.h"
#include "ui/main/WindowKeys.h"
#include "ui/toolkit/ControlGeometry.h"

namespace tarnwell::ui {

using workspace::KeyboardFocus;
namespace {

// Below 5000 twips either way the form does not arrange its panes.
constexpr QSize LeastSize(400, 334);
// What has to be on a screen of a window's upper edge, for the mouse to move the window by.
constexpr QSize LeastGrip(80, 16);

// Above and below the text of a title.
constexpr int TitleRim = 2;

// A window that cannot be reached with the mouse, whatever the settings say, comes to the screen.
QPoint ReachablePlace(const QRect& window, const QScreen& screen) {
  const QRect upper(window.topLeft(), QSize(window.width(), LeastGrip.height()));
  for (const QScreen* each : screen.virtualSiblings()) {
    const QRect grip = upper & each->availableGeometry();
    if (grip.width() >= LeastGrip.width() && grip.height() >= LeastGrip.height()) {
      return window.topLeft();
    }
  }
  const QRect room = screen.availableGeometry();
  return {std::clamp(window.left(), room.left(),
                     std::max(room.left(), room.right() + 1 - window.width())),
          std::clamp(window.top(), room.top(),
                     std::max(room.top(), room.bottom() + 1 - window.height()))};
}

}  // namespace

MainWindow::MainWindow(shell::Master& master, const IconSource& icons, OperationViews& operations)
    : master_(master),
      form_(master.Form()),
      icons_(icons),
      operations_(operations),
      menu_(master, icons, *menuBar()),
      surface_(new FormSurface(SurfaceActions(), this)),
      placesWindows_(!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))),
      keeper_(new FocusKeeper([this] { return Typist(); }, surface_)),
      toolbar_(new MainToolbar(master, icons, surface_)),
      escape_(new QShortcut(Qt::Key_Escape, this)),
      shortcuts_(*this, [this](std::string_view keys) { master_.PressKeys(keys); }),
      strip_(form_, *surface_, [this](bool shift) { master_.CommandEnter(shift); }),
      others_(*this, [this] { master_.MenuClick("mPopRestore"); }) {
  setMinimumSize(LeastSize);
  LayOutStrip();
  menuBar()->setAccessibleName(QStringLiteral("Menu bar"));
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    PaneTitle*& title = titles_[pane];
    title = new PaneTitle(
        pane, icons_.OpenFolder(),
        {.Click = [this, pane] { master_.TitleClick(pane); },
         .PictureClick = [this,
                          pane] { Guarded([this, pane] { master_.TitlePictureClick(pane); }); },
         .MouseDown = [this, pane] { master_.TitleMouseDown(pane); },
         .MouseMove = [this, pane] { master_.TitleMouseMove(pane); },
         .Close = [this, pane] { master_.ClosePaneClick(pane); }},
        surface_);
    title->hide();
    for (const lister::ListId list : {lister::FolderListOf(pane), lister::FileListOf(pane)}) {
      noRoom_[list] = new NoRoomLabel(surface_);
      noRoom_[list]->hide();
    }
  }
  for (DragBar*& bar : bars_) bar = new DragBar(*surface_, placesWindows_);
  connect(escape_, &QShortcut::activated, this, [this] {
    master_.KeyDown(lister::EscapeKey, 0);
    SyncDrag();
  });
  BindKeys();
  new WindowKeys(
      *this,
      {.Down = [this](int code, int shift) { master_.KeyDown(code, shift); },
       .Up = [this] { master_.KeyUp(); },
       .Back = [this] { master_.Activated(); },
       .IsFormKey = [this](const QWidget* focus) { return focus == keeper_ || IsRows(focus); }});
  connect(qApp, &QApplication::focusChanged, this, [this] { NoteFocus(); });
}

MainWindow::~MainWindow() {
  // The children lose focus and mouse while this object is whole, and nothing is told of that.
  disconnect(qApp, nullptr, this, nullptr);
  Close();
  hide();
}

// Ways for the keyboard to what the mouse finds by itself.
void MainWindow::BindKeys() {
  const auto bind = [this](const QKeySequence& key, auto act) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, act);
  };
  bind(QKeySequence::Find, [this] { EnterControls(&lister::FileListOf); });
  bind(Qt::SHIFT | Qt::Key_F10, [this] { PressMenuKey(focusWidget()); });
  bind(Qt::CTRL | Qt::Key_J, [this] { operations_.EnterOrLeave(); });
  bind(Qt::Key_F1, [this] { master_.KeyDown(lister::F1Key, 0); });
  bind(Qt::Key_F4, [this] { EnterControls(&lister::FolderListOf); });
  bind(Qt::Key_F10, [this] { menuBar()->setActiveAction(menuBar()->actions().value(0)); });
}

// The operations at work have the lower edge, and the form what is left.
void MainWindow::LayOutStrip() {
  auto* const inside = new QWidget(this);
  auto* const column = new QVBoxLayout(inside);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(surface_, 1);
  column->addWidget(operations_.MakeStrip(
      *this, [this] { LeaveOperations(); },
      [this] {
        if (!IsClosed()) form_.Touch();
      }));
  setCentralWidget(inside);
}

void MainWindow::LeaveOperations() {
  QWidget* const typist = Typist();
  (typist != nullptr && typist->isVisible() ? typist : keeper_)->setFocus();
}

FormSurface::Actions MainWindow::SurfaceActions() {
  return {.MouseMove =
              [this](float x, float y) {
                master_.MouseMove(x, y);
                SyncDrag();
              },
          .MouseDown =
              [this](float x, float y) {
                master_.MouseDown(x, y);
                SyncDrag();
              },
          .MouseUp =
              [this] {
                if (IsClosed()) return;
                master_.MouseUp();
                Sync();
              },
          .WheelTurned = [this](int delta) { master_.WheelTurned(delta); },
          .Resized = [this] { InsideResized(); }};
}

void MainWindow::Sync() {
  const QString title = ToWindowTitle(form_.Caption);
  setWindowTitle(operations_.AnyAsks() ? QStringLiteral("Question - ") + title : title);
  menu_.Sync();
  SyncToolbar();
  SyncColours();
  TakeKeyboard();
  for (int pane = 0; pane < lister::PaneCount; ++pane) SyncPane(pane);
  strip_.Sync(skin_);
  SyncShapes();
  SyncDrag();
  SyncPresence();
  // When the first pane of all opens, nothing has the keyboard.
  if (isVisible() && focusWidget() == nullptr) keeper_->setFocus();
}

void MainWindow::SyncToolbar() {
  toolbar_->Sync();
  form_.Toolbar1.Top = 0;
  form_.Toolbar1.Width = ToTwips(surface_->width());
  form_.Toolbar1.Height = ToTwips(MainToolbar::Height);
  // The first button stands in line with the panes.
  PlaceAt(*toolbar_, RectOf(form_.Toolbar1).adjusted(3, 0, 0, 0), form_.Toolbar1.Visible);
}

void MainWindow::SyncColours() {
  // Before a skin is loaded the desktop's colours serve.
  skin_.reset();
  if (form_.HasSkin) {
    skin_ = ProgramColours(ToQColor(form_.BackColour), ToQColor(form_.ListBackColour),
                           ToQColor(form_.ListForeColour), ToQColor(form_.AccentColour));
  }
  programColours_.Show(skin_);
  menuColours_.Show(*menuBar(), BarColours(form_.MenuBackColour, skin_));
}

void MainWindow::SyncPane(int pane) {
  titles_[pane]->Sync(form_.TitleBar[pane], form_.cmdTitle[pane], form_.cmdClosePane[pane],
                      form_.shpBack[pane],
                      workspace::FindAccent(master_.Space().Panes[pane].Accent), skin_);
  SyncList(lister::FolderListOf(pane));
  SyncList(lister::FileListOf(pane));
}

void MainWindow::SyncList(lister::ListId list) {
  lister::ListerControl* control = master_.Space().Lists.Find(list);
  if (control == nullptr) return;
  std::unique_ptr<ListerWidget>& widget = lists_[list];
  if (!widget) {
    widget = std::make_unique<ListerWidget>(*control, icons_, surface_);
    widget->setAttribute(Qt::WA_NoMousePropagation);
    widget->setCursor(Qt::ArrowCursor);
    widget->hide();
  }
  // Left alone, the toolkit would give the keyboard of a list that goes to whichever comes next,
  // and so make that one the current list.
  if (!IsPlaced(*control) && HasKeyboard(list)) keeper_->setFocus();
  PlaceAt(*widget, RectOf(*control), IsPlaced(*control));
}

void MainWindow::SyncShapes() {
  std::vector<FormSurface::Patch> patches;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const forms::Shape& back = form_.shpBack[pane];
    if (IsPlaced(back) && skin_) {
      patches.push_back({RectOf(back), ToQColor(back.BackColour), {}});
    }
    for (const lister::ListId list : {lister::FolderListOf(pane), lister::FileListOf(pane)}) {
      const forms::Label& shown = form_.lblNoRoom[list];
      NoRoomLabel& label = *noRoom_[list];
      noRoomColours_[list].Show(label, BarColours(shown.BackColour, skin_));
      label.setText(ToShownQString(shown.Caption));
      PlaceAt(label, RectOf(shown), IsPlaced(shown));
      const forms::Shape& holder = form_.shpPlaceHolder[list];
      if (!IsPlaced(holder)) continue;
      patches.push_back(
          {RectOf(holder), label.palette().color(QPalette::Window), LineColour(label.palette())});
    }
  }
  surface_->ShowShapes(std::move(patches), MainToolbar::Height, LineColour(surface_->palette()));
}

// What follows the mouse. The grey bars lie behind the others.
void MainWindow::SyncDrag() {
  if (IsClosed()) return;
  surface_->ShowPointer(form_.MousePointer);
  const forms::Shape* const shapes[] = {&form_.LineVert2, &form_.LineHorz2, &form_.LineVert,
                                        &form_.LineHorz};
  for (std::size_t i = 0; i < bars_.size(); ++i) bars_[i]->Sync(*shapes[i]);
}

// --- The keyboard

QWidget* MainWindow::Typist() const {
  const auto found = lists_.find(master_.Space().ActiveList);
  return found == lists_.end() ? nullptr : found->second->focusProxy();
}

bool MainWindow::IsRows(const QWidget* widget) const {
  return std::ranges::any_of(
      lists_, [widget](const auto& each) { return each.second->focusProxy() == widget; });
}

bool MainWindow::HasKeyboard(lister::ListId list) const {
  const auto found = lists_.find(list);
  return found != lists_.end() && found->second->isAncestorOf(focusWidget());
}

void MainWindow::NoteFocus() {
  if (IsClosed()) return;
  const QWidget* const focus = focusWidget();
  const bool inList = std::ranges::any_of(
      lists_, [focus](const auto& each) { return each.second->isAncestorOf(focus); });
  form_.ActiveControl = focus == keeper_             ? KeyboardFocus::Form
                        : strip_.HoldsCommand(focus) ? KeyboardFocus::CommandLine
                        : inList                     ? KeyboardFocus::List
                                                     : KeyboardFocus::Other;
  // There the key means nothing to the form.
  escape_->setEnabled(form_.ActiveControl != KeyboardFocus::CommandLine);
  shortcuts_.NoteFocus(focus);
}

void MainWindow::EnterControls(lister::ListId (*listOf)(int)) {
  const auto found = lists_.find(listOf(lister::PaneOf(master_.Space().ActiveList)));
  if (found != lists_.end() && found->second->isVisible()) found->second->EnterControls();
}

// The form wants the keyboard off its controls. What is typed is for the active list, which may
// have it already.
void MainWindow::TakeKeyboard() {
  if (form_.ActiveControl != KeyboardFocus::Form || focusWidget() == keeper_) return;
  if (!HasKeyboard(master_.Space().ActiveList)) keeper_->setFocus();
  NoteFocus();
}

// --- The window's place

void MainWindow::Show(QWidget*) {
  if (!placesWindows_ && !form_.PlaceRead) form_.Left = form_.Top = 0;
  const QRect wished(ToPixels(form_.Left), ToPixels(form_.Top), ToPixels(form_.Width),
                     ToPixels(form_.Height));
  const QSize size =
      wished.size().expandedTo(LeastSize).boundedTo(screen()->availableVirtualSize());
  const bool maximise = form_.State == forms::WindowState::Maximised;
  resize(size);
  move(ReachablePlace(QRect(wished.topLeft(), size), *screen()));
  maximise ? showMaximized() : show();
  if (maximise) NoteWholeScreen();
  activateWindow();
}

// Until the desktop tells where it is, for what is shown over it meanwhile.
void MainWindow::NoteWholeScreen() {
  const QRect room = screen()->availableGeometry();
  if (placesWindows_) {
    form_.Left = ToTwips(room.x());
    form_.Top = ToTwips(room.y());
  }
  form_.Width = ToTwips(room.width());
  form_.Height = ToTwips(room.height());
}

// What the form wants of the window after it was shown: to go, to come back, or to come back
// minimised.
void MainWindow::SyncPresence() {
  const bool isMinimised = form_.State == forms::WindowState::Minimised;
  if (form_.InTray == isAway_ && (isAway_ || isMinimised || !isMinimized())) return;
  isAway_ = form_.InTray;
  if (isAway_) {
    others_.Hide();
    hide();
    return;
  }
  others_.Watch(isMinimised);
  const forms::WindowState shown = isMinimised ? form_.LastWindowState : form_.State;
  setAttribute(Qt::WA_ShowWithoutActivating, isMinimised);
  shown == forms::WindowState::Maximised ? showMaximized() : showNormal();
  if (isMinimised) {
    // X11 minimises only what is shown.
    setWindowState(windowState() | Qt::WindowMinimized);
    return;
  }
  raise();
  activateWindow();
  InsideResized();  // what changed meanwhile is not arranged yet
  others_.Show();
}

void MainWindow::NotePlace() {
  if (IsClosed() || !isVisible()) return;
  const Qt::WindowStates state = windowState();
  if (state.testFlag(Qt::WindowMinimized)) {
    form_.State = forms::WindowState::Minimised;
    return;
  }
  form_.State = state.testFlag(Qt::WindowMaximized) ? forms::WindowState::Maximised
                                                    : forms::WindowState::Normal;
  if (placesWindows_) {
    form_.Left = ToTwips(pos().x());
    form_.Top = ToTwips(pos().y());
  }
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
}

void MainWindow::NoteState() {
  const bool wasMinimised = form_.State == forms::WindowState::Minimised;
  NotePlace();
  const bool isMinimised = form_.State == forms::WindowState::Minimised;
  others_.Watch(isMinimised);
  if (isMinimised == wasMinimised) return;
  if (!isMinimised) {
    // What changed meanwhile is not arranged yet, and the size may be the same.
    InsideResized();
    others_.Show();
  } else if (QApplication::activeModalWidget() == nullptr) {
    // Where a question waits, the window stays with it on the task bar.
    Guarded([this] { master_.Resize(); });
  }
}

void MainWindow::InsideResized() {
  if (IsClosed()) return;
  NotePlace();
  SyncToolbar();
  master_.FitTitles(ToTwips(fontMetrics().height() + TitleRim));
  form_.ScaleWidth = ToTwips(surface_->width());
  form_.ScaleHeight = ToTwips(surface_->height());
  Guarded([this] { master_.Resize(); });
  Sync();
}

// --- Events

bool MainWindow::event(QEvent* event) {
  // Another window is about to hear of the mouse, or a question holds this one up.
  if (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::WindowBlocked) {
    surface_->EndDrag();
  }
  if (event->type() == QEvent::WindowActivate && !IsClosed()) master_.Activated();
  if (event->type() == QEvent::Hide) {
    for (DragBar* const bar : bars_) bar->hide();
  }
  return QMainWindow::event(event);
}

void MainWindow::moveEvent(QMoveEvent* event) {
  NotePlace();
  SyncDrag();
  QMainWindow::moveEvent(event);
}

// Shortcuts know the letters of the layout alone, and nothing of keys that a menu leaves alone.
void MainWindow::keyPressEvent(QKeyEvent* event) {
  const QKeySequence keys(event->keyCombination());
  for (QShortcut* const shortcut : findChildren<QShortcut*>(Qt::FindDirectChildrenOnly)) {
    if (!shortcut->isEnabled() || !shortcut->keys().contains(keys)) continue;
    if (shortcut->autoRepeat() || !event->isAutoRepeat()) emit shortcut->activated();
    return;
  }
  QMainWindow::keyPressEvent(event);
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange && isVisible()) InsideResized();
  if (event->type() == QEvent::WindowStateChange) NoteState();
  QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // unloading the form takes the window away
  master_.MenuClick("mnuExit");
}

}  // namespace tarnwell::ui
