#include "ui/MainWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <cstddef>
#include <vector>

#include "ui/Place.h"

namespace tarnwell::ui {
namespace {

constexpr QSize LeastSize(320, 240);
constexpr QSize ButtonIcon(20, 20);

// A palette around one colour, with black or white text, whichever can be read on it.
QPalette PaletteOn(const QColor& back) {
  QPalette palette(back, back);
  const QColor text = qGray(back.rgb()) > 127 ? Qt::black : Qt::white;
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
    palette.setColor(role, text);
  }
  return palette;
}

bool HoldsCommand(const QMenu& menu) {
  const auto actions = menu.actions();
  return std::ranges::any_of(actions, [](const QAction* action) {
    return action->menu() != nullptr ? HoldsCommand(*action->menu()) : !action->isSeparator();
  });
}

QString MenuText(const std::string& caption) {
  return ToShownQString(caption);
}

}  // namespace

MainWindow::MainWindow(shell::Master& master, const IconSource& icons)
    : master_(master),
      form_(master.Form()),
      icons_(icons),
      area_(new QWidget(this)),
      toolbar_(new QToolBar(area_)) {
  setMinimumSize(LeastSize);
  setCentralWidget(area_);
  area_->setAutoFillBackground(true);
  area_->installEventFilter(this);
  toolbar_->setIconSize(ButtonIcon);
  toolbar_->setAccessibleName(QStringLiteral("Toolbar"));
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const auto i = static_cast<std::size_t>(pane);
    backs_[i] = new QFrame(area_);
    backs_[i]->setAutoFillBackground(true);
    backs_[i]->hide();
    titles_[i] = new PaneTitle(pane, icons_.OpenFolder(),
                               {.Click = [this, pane] { master_.TitleClick(pane); },
                                .MouseDown = [this, pane] { master_.TitleMouseDown(pane); },
                                .Close = [this, pane] { master_.ClosePaneClick(pane); }},
                               area_);
    titles_[i]->hide();
  }
  auto* escape = new QShortcut(Qt::Key_Escape, this);
  connect(escape, &QShortcut::activated, this, [this] { master_.EscapeKey(); });
}

MainWindow::~MainWindow() = default;

// Menus show the entries behind which a command stands, and the submenus that hold one.
void MainWindow::BuildMenus() {
  const auto& entries = form_.Menus.Entries();
  std::vector<QMenu*> parents;  // the open submenu of each level
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const forms::MenuEntry& entry = entries[i];
    const auto level = static_cast<std::size_t>(entry.Level);
    parents.resize(std::min(parents.size(), level - 1));
    const bool hasChildren = i + 1 < entries.size() && entries[i + 1].Level > entry.Level;
    if (parents.size() + 1 < level || (!entry.Visible && level == 1)) continue;
    if (hasChildren) {
      QMenu* menu = parents.empty() ? menuBar()->addMenu(MenuText(entry.Caption))
                                    : parents.back()->addMenu(MenuText(entry.Caption));
      menuActions_[entry.Name] = menu->menuAction();
      parents.push_back(menu);
    } else if (entry.IsSeparator()) {
      parents.back()->addSeparator();
    } else if (commands::Commands::IsCommand(entry.Name)) {
      QAction* action = parents.back()->addAction(MenuText(entry.Caption));
      action->setCheckable(entry.Checkable);
      menuActions_[entry.Name] = action;
      connect(action, &QAction::triggered, this, [this, name = entry.Name] {
        Guarded([this, &name] { master_.MenuClick(name); });
        form_.Touch();  // the click has turned the mark; the form says how it stands
      });
    }
  }
  for (const auto& [name, action] : menuActions_) {
    if (action->menu() != nullptr) action->setVisible(HoldsCommand(*action->menu()));
  }
}

void MainWindow::BuildToolbar() {
  for (const forms::ToolbarButton& button : form_.Toolbar1.Buttons()) {
    if (!commands::Commands::IsCommand(button.Key)) continue;
    QAction* action =
        toolbar_->addAction(icons_.Own(form_.ImageList1.Key(button.Image)), ToQString(button.Key));
    action->setCheckable(button.Style == forms::ButtonStyle::Check);
    buttons_[button.Key] = action;
    connect(action, &QAction::triggered, this, [this, key = button.Key] {
      Guarded([this, &key] { master_.ButtonClick(key); });
      form_.Touch();
    });
  }
}

void MainWindow::Sync() {
  setWindowTitle(ToShownQString(form_.Caption));
  if (menuActions_.empty()) {
    BuildMenus();
    BuildToolbar();
  }
  SyncMenus();
  SyncToolbar();
  SyncColours();
  MoveFocusFromClosed();
  for (int pane = 0; pane < lister::PaneCount; ++pane) SyncPane(pane);
  GiveFocusToActive();
}

void MainWindow::SyncMenus() {
  for (const auto& [name, action] : menuActions_) {
    const forms::MenuEntry& entry = form_.Menus[name];
    action->setText(MenuText(entry.Caption));
    if (action->isCheckable()) action->setChecked(entry.Checked);
    if (action->menu() == nullptr) {
      action->setVisible(entry.Visible);
      action->setIcon(icons_.Own(form_.MenuImages.ImageOf(entry)));
    }
  }
}

void MainWindow::SyncToolbar() {
  for (const auto& [key, action] : buttons_) {
    const forms::ToolbarButton& button = form_.Toolbar1[key];
    if (action->isCheckable()) action->setChecked(button.Pressed);
    action->setEnabled(button.Enabled);
    // A pane's button is named by its pane, and its tip is the folder that the pane shows.
    const bool ofPane = key.starts_with("pane");
    const QString name = ofPane ? QStringLiteral("Pane %1").arg(key.back() - '0' + 1)
                                : ToShownQString(button.ToolTip);
    action->setText(name);
    action->setToolTip(
        PlainToolTip(button.ToolTip.empty() ? name : ToShownQString(button.ToolTip)));
    if (QWidget* widget = toolbar_->widgetForAction(action)) widget->setAccessibleName(name);
  }
  const int height = toolbar_->sizeHint().height();
  form_.Toolbar1.Top = 0;
  form_.Toolbar1.Width = ToTwips(area_->width());
  form_.Toolbar1.Height = ToTwips(height);
  PlaceAt(*toolbar_, QRect(0, 0, area_->width(), height), form_.Toolbar1.Visible);
}

// Before a skin is loaded every colour is zero, and the toolkit's own serve.
bool MainWindow::IsSkinned() const {
  return form_.TitleBar[0].BackColour != form_.TitleBar[0].ForeColour;
}

void MainWindow::SyncColours() {
  const bool skinned = IsSkinned();
  const QPalette plain = QGuiApplication::palette();
  const QPalette inside = skinned ? PaletteOn(ToQColor(form_.BackColour)) : plain;
  const QPalette menu = skinned ? PaletteOn(ToQColor(form_.MenuBackColour)) : plain;
  if (area_->palette() != inside) area_->setPalette(inside);
  if (menuBar()->palette() == menu) return;
  menuBar()->setPalette(menu);
  // A menu that unfolds is a window of its own, and takes no colours from the bar.
  QPalette sheet = menu;
  if (skinned) sheet.setColor(QPalette::Base, menu.color(QPalette::Window));
  for (QMenu* const unfolding : menuBar()->findChildren<QMenu*>()) unfolding->setPalette(sheet);
}

// A list that is about to go hands the keyboard to the active list; left alone, the toolkit would
// give it to whichever comes next, and so make that one the active list.
void MainWindow::MoveFocusFromClosed() {
  const lister::ListId active = master_.Space().ActiveList;
  for (const auto& [list, widget] : lists_) {
    const auto pane = static_cast<std::size_t>(lister::PaneOf(list));
    const bool closes = !master_.Space().Panes[pane].IsOpen() && widget->isVisible();
    if (!closes || !widget->isAncestorOf(focusWidget())) continue;
    if (lister::ListerControl* control = master_.Space().Lists.Find(active)) control->TakeFocus();
  }
}

// When the first pane of all opens, nothing has the keyboard.
void MainWindow::GiveFocusToActive() {
  if (!isVisible() || focusWidget() != nullptr) return;
  const lister::ListId active = master_.Space().ActiveList;
  if (lister::ListerControl* control = master_.Space().Lists.Find(active)) control->TakeFocus();
}

void MainWindow::SyncPane(int pane) {
  const auto i = static_cast<std::size_t>(pane);
  const forms::Shape& back = form_.shpBack[i];
  const bool open = master_.Space().Panes[i].IsOpen() && form_.TitleBar[i].Visible;
  PlaceAt(*backs_[i], RectOf(back), open && back.Visible);
  const QPalette palette = IsSkinned() ? PaletteOn(ToQColor(back.BackColour)) : area_->palette();
  if (backs_[i]->palette() != palette) backs_[i]->setPalette(palette);
  forms::TextBox title = form_.TitleBar[i];
  title.Visible = open;
  titles_[i]->Sync(title, form_.cmdTitle[i], form_.cmdClosePane[i]);
  SyncList(lister::FolderListOf(pane));
  SyncList(lister::FileListOf(pane));
}

void MainWindow::SyncList(lister::ListId list) {
  lister::ListerControl* control = master_.Space().Lists.Find(list);
  if (control == nullptr) return;
  std::unique_ptr<ListerWidget>& widget = lists_[list];
  if (!widget) {
    widget = std::make_unique<ListerWidget>(*control, icons_, area_);
    widget->hide();
  }
  const bool open = master_.Space().Panes[static_cast<std::size_t>(lister::PaneOf(list))].IsOpen();
  // Before the first arrangement a list has no place to be shown at.
  PlaceAt(*widget, RectOf(*control), open && control->Visible && control->Width > 0);
}

void MainWindow::Show(QWidget*) {
  const QRect room = screen()->availableGeometry();
  const QSize size = QSize(ToPixels(form_.Width), ToPixels(form_.Height))
                         .expandedTo(LeastSize)
                         .boundedTo(room.size());
  // The title row stays within reach, whatever the settings say.
  const int left = std::clamp(ToPixels(form_.Left), room.left(),
                              std::max(room.left(), room.right() + 1 - size.width()));
  const int top = std::clamp(ToPixels(form_.Top), room.top(),
                             std::max(room.top(), room.bottom() + 1 - size.height()));
  const bool maximise = form_.State == forms::WindowState::Maximised;
  resize(size);
  move(left, top);
  maximise ? showMaximized() : show();
  activateWindow();
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
  form_.Left = ToTwips(pos().x());
  form_.Top = ToTwips(pos().y());
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
}

void MainWindow::AreaResized() {
  if (IsClosed()) return;
  NotePlace();
  SyncToolbar();
  form_.ScaleWidth = ToTwips(area_->width());
  form_.ScaleHeight = ToTwips(area_->height());
  Guarded([this] { master_.Resize(); });
  Sync();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == area_ && event->type() == QEvent::Resize) AreaResized();
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::moveEvent(QMoveEvent* event) {
  NotePlace();
  QMainWindow::moveEvent(event);
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange) NotePlace();
  QMainWindow::changeEvent(event);
}

void MainWindow::keyReleaseEvent(QKeyEvent* event) {
  master_.KeyUp();
  QMainWindow::keyReleaseEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // unloading the form takes the window away
  master_.MenuClick("mnuExit");
}

}  // namespace tarnwell::ui
