#include "ui/MainToolbar.h"

#include <QAction>
#include <QEvent>
#include <QLayout>
#include <utility>

#include "ui/Convert.h"
#include "ui/FormWindow.h"

namespace tarnwell::ui {
namespace {

// Half as large again as the grid that the pictures are drawn on.
constexpr QSize IconSize(24, 24);
constexpr int ButtonSide = MainToolbar::Height - 2;

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
  return done;
}

void MainToolbar::Build() {
  const workspace::MainForm& form = master_.Form();
  bool groupEnded = false;
  for (const forms::ToolbarButton& button : form.Toolbar1.Buttons()) {
    groupEnded = groupEnded || button.Style == forms::ButtonStyle::Separator;
    if (!commands::Commands::IsCommand(button.Key)) continue;
    if (std::exchange(groupEnded, false) && !buttons_.empty()) addSeparator();
    QAction* action = addAction(ToQString(button.Key));
    action->setCheckable(button.Style == forms::ButtonStyle::Check);
    widgetForAction(action)->setMinimumSize(ButtonSide, ButtonSide);
    buttons_[button.Key].Action = action;
    connect(action, &QAction::triggered, this, [this, key = button.Key] {
      Guarded([this, &key] { master_.ButtonClick(key); });
      master_.Form().Touch();
    });
  }
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
