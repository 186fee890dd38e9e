#include "ui/main/MainMenu.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/ShownKeys.h"

namespace tarnwell::ui {
namespace {

// What has this as a filter keeps its keys from all shortcuts, those of its own entries among them.
class KeyKeeper : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return false;
    event->accept();
    return true;
  }
};

}  // namespace

MainMenu::MainMenu(shell::Master& master, const IconSource& icons, QMenuBar& bar)
    : master_(master), icons_(icons), bar_(bar), keyKeeper_(std::make_unique<KeyKeeper>()) {
  bar_.installEventFilter(keyKeeper_.get());
}

void MainMenu::Build() {
  const auto& entries = master_.Form().Menus.Entries();
  std::vector<QMenu*> parents;  // the open submenu of each level
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const forms::MenuEntry& entry = entries[i];
    const auto level = static_cast<std::size_t>(entry.Level);
    parents.resize(std::min(parents.size(), level - 1));
    const bool hasChildren = i + 1 < entries.size() && entries[i + 1].Level > entry.Level;
    if (parents.size() + 1 < level || (!entry.Visible && level == 1)) continue;
    const QString text = ToShownQString(entry.Caption);
    if (hasChildren) {
      parents.push_back(parents.empty() ? bar_.addMenu(text) : parents.back()->addMenu(text));
      parents.back()->setObjectName(ToQString(entry.Name));
      parents.back()->installEventFilter(keyKeeper_.get());
      entries_[entry.Name].Action = parents.back()->menuAction();
    } else if (entry.IsSeparator()) {
      parents.back()->addSeparator();
    } else if (commands::Commands::IsCommand(entry.Name)) {
      QAction* action = parents.back()->addAction(text);
      action->setObjectName(ToQString(entry.Name));
      action->setCheckable(entry.Checkable);
      ShowKeys(*action, entry.Name);
      entries_[entry.Name].Action = action;
      QObject::connect(action, &QAction::triggered, &bar_, [this, name = entry.Name] {
        Guarded([this, &name] { master_.MenuClick(name); });
        master_.Form().Touch();  // the click has turned the mark; the form says how it stands
      });
    }
  }
}

void MainMenu::Sync() {
  if (entries_.empty()) Build();
  const workspace::MainForm& form = master_.Form();
  for (auto& [name, entry] : entries_) {
    const forms::MenuEntry& shown = form.Menus[name];
    entry.Action->setText(ToShownQString(shown.Caption));
    if (entry.Action->isCheckable()) entry.Action->setChecked(shown.Checked);
    entry.Action->setVisible(shown.Visible);
    const std::string_view image = form.MenuImages.ImageOf(shown);
    if (entry.Image == image) continue;
    entry.Image = image;
    entry.Action->setIcon(icons_.Own(image));
  }
}

}  // namespace tarnwell::ui
