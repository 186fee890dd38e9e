// Showing a window that belongs to another one, without being its child.
#pragma once

#include <QWidget>

namespace tarnwell::ui {

// The window that the user works in: the active one, else one that can be seen and that no other
// was opened over, else null.
QWidget* WindowInUse();

// Shows the window over the middle of `owner`, which may be null, wholly on the screen, and gives
// it the keyboard. It stays above the owner, and stays when the owner is deleted.
void ShowOver(QWidget& window, QWidget* owner);

}  // namespace tarnwell::ui
