// The keys of the main window as a whole, wherever in it the keyboard is: see commands/KeyTable.h.
// Text fields and menus keep them for themselves.
#pragma once

#include <QShortcut>
#include <functional>
#include <string_view>
#include <vector>

namespace tarnwell::ui {

class KeyShortcuts {
 public:
  using Act = std::function<void(std::string_view keys)>;
  KeyShortcuts(QWidget& window, const Act& act);

  // The widget has the keyboard; null for none of the window.
  void NoteFocus(const QWidget* focus);

 private:
  std::vector<QShortcut*> shortcuts_;  // of the window
};

}  // namespace tarnwell::ui
