#include "ui/main/MainToolbar.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {
namespace {

// Half as large again as the grid that the pictures are drawn on.
constexpr QSize IconSize(24, 24);
constexpr int MainButtonSide = MainToolbar::Height - 2;

}  // namespace

MainToolbar::MainToolbar(shell::Master& master, const IconSource& icons, QWidget* parent)
    : QToolBar(parent), master_(master), icons_(icons) {
  setIconSize(IconSize);
  setCursor(Qt::ArrowCursor);
  setAccessibleName(QStringLiteral("Toolbar"));
}

bool MainToolbar::event(QEvent* event) {
  const bool done = QToolBar::event(event);
  if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange) {
    // In place of the style's, which would take more height than there is.
    layout()->setContentsMargins(1, 1, 1, 1);
    layout()->setSpacing(1);
  }
  // The toolkit takes the pointer off again wherever there is no handle.
  if (event->type() == QEvent::HoverMove) setCursor(Qt::ArrowCursor);
  return done;
}

void MainToolbar::Build() {
  const workspace::MainForm& form = master_.Form();
  bool groupEnded = false;
  for (const forms::ToolbarButton& button : form.Toolbar1.Buttons()) {
    groupEnded = groupEnded || button.Style == forms::ButtonStyle::Separator;
    if (!commands::Commands::IsCommand(button.Key)) continue;
    if (std::exchange(groupEnded, false) && !buttons_.empty()) {
      widgetForAction(addSeparator())->setAccessibleName(QStringLiteral("Separator"));
    }
    QAction* action = addAction(ToQString(button.Key));
    action->setObjectName(ToQString(button.Key));
    action->setCheckable(button.Style == forms::ButtonStyle::Check);
    QWidget* const widget = widgetForAction(action);
    widget->setObjectName(ToQString(button.Key));
    widget->setMinimumSize(MainButtonSide, MainButtonSide);
    widget->setFocusPolicy(buttons_.empty() ? Qt::TabFocus : Qt::NoFocus);
    widget->installEventFilter(this);
    buttons_[button.Key].Action = action;
    connect(action, &QAction::triggered, this, [this, key = button.Key] {
      Guarded([this, &key] { master_.ButtonClick(key); });
      master_.Form().Touch();
    });
  }
  if (auto* const more = findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
    more->setAccessibleName(QStringLiteral("More buttons"));
    more->setToolTip(more->accessibleName());
  }
}

bool MainToolbar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QToolBar::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Left && key != Qt::Key_Right) return QToolBar::eventFilter(watched, event);
  MoveKeyboard(watched, key == Qt::Key_Left ? -1 : 1);
  return true;
}

void MainToolbar::MoveKeyboard(const QObject* from, int step) {
  QList<QWidget*> reachable;
  for (QAction* const action : actions()) {
    QWidget* const widget = widgetForAction(action);
    if (!action->isSeparator() && widget->isVisible() && widget->isEnabled()) reachable << widget;
  }
  const auto at = std::ranges::find(reachable, from);
  if (at == reachable.end()) return;
  const qsizetype next = at - reachable.begin() + step;
  if (next < 0 || next >= reachable.size()) return;
  (*at)->setFocusPolicy(Qt::NoFocus);
  reachable[next]->setFocusPolicy(Qt::TabFocus);
  reachable[next]->setFocus(Qt::TabFocusReason);
}

void MainToolbar::Sync() {
  if (buttons_.empty()) Build();
  const workspace::MainForm& form = master_.Form();
  for (auto& [key, shown] : buttons_) {
    const forms::ToolbarButton& button = form.Toolbar1[key];
    QAction* const action = shown.Action;
    const std::string_view image = form.ImageList1.Key(button.Image);
    if (shown.Image != image) {
      shown.Image = image;
      action->setIcon(icons_.Own(image));
    }
    if (action->isCheckable()) action->setChecked(button.Pressed);
    action->setEnabled(button.Enabled);
    // A pane's button is named by its pane, and its tip is the folder that the pane shows.
    const bool ofPane = key.starts_with("pane");
    const QString name = ofPane ? QStringLiteral("Pane %1").arg(key.back() - '0' + 1)
                                : ToShownQString(button.ToolTip);
    action->setText(name);
    action->setToolTip(
        PlainToolTip(button.ToolTip.empty() ? name : ToShownQString(button.ToolTip)));
    if (QWidget* widget = widgetForAction(action)) widget->setAccessibleName(name);
  }
}

}  // namespace tarnwell::ui
