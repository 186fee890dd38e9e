#include "ui/toolkit/ShownKeys.h"

#include "commands/KeyTable.h"

namespace tarnwell::ui {

QKeySequence KeysOf(std::string_view keys) {
  return QKeySequence::fromString(ToQString(keys), QKeySequence::PortableText);
}

void ShowKeys(QAction& action, std::string_view entry) {
  const std::string_view keys = commands::KeysBeside(entry);
  if (keys.empty()) return;
  // The toolkit acts on it only where what holds the action has the keyboard, and menus keep their
  // keys.
  action.setShortcutContext(Qt::WidgetShortcut);
  action.setShortcut(KeysOf(keys));
  action.setShortcutVisibleInContextMenu(true);
}

}  // namespace tarnwell::ui
