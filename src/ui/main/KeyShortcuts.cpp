#include "ui/main/KeyShortcuts.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

#include "commands/KeyTable.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/ShownKeys.h"

namespace tarnwell::ui {
namespace {

bool IsTextField(const QWidget* widget) {
  const auto* const box = qobject_cast<const QComboBox*>(widget);
  return qobject_cast<const QLineEdit*>(widget) != nullptr || (box != nullptr && box->isEditable());
}

// Both keys that are called so.
QList<QKeySequence> WithKeypad(const QKeySequence& keys) {
  const QKeyCombination key = keys[0];
  if (key.key() != Qt::Key_Return) return {keys};
  return {keys, QKeySequence(QKeyCombination(key.keyboardModifiers(), Qt::Key_Enter))};
}

}  // namespace

KeyShortcuts::KeyShortcuts(QWidget& window, const Act& act) {
  for (const commands::KeyRow& row : commands::KeyTable()) {
    if (row.Run == nullptr) continue;
    auto* const shortcut = new QShortcut(&window);
    shortcut->setKeys(WithKeypad(KeysOf(row.Keys)));
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, &window, [act, keys = row.Keys] {
      // The toolkit counts a menu that is up as a part of its window.
      if (QApplication::activePopupWidget() == nullptr) Guarded([&] { act(keys); });
    });
    shortcuts_.push_back(shortcut);
  }
}

void KeyShortcuts::NoteFocus(const QWidget* focus) {
  for (QShortcut* const shortcut : shortcuts_) shortcut->setEnabled(!IsTextField(focus));
}

}  // namespace tarnwell::ui
