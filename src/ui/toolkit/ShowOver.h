// Showing a window that belongs to another one, without being its child.
#pragma once

#include <QWidget>

namespace tarnwell::ui {

// Whether people take it for a window of the program: no menu or tool-tip, nor the icon in the
// notification area, which is one to Qt.
bool IsProperWindow(const QWidget& widget);

// The window that the user works in: the active one, else one that can be seen and that no other
// was opened over, else null.
QWidget* WindowInUse();

// Shows the window over the middle of `owner`, which may be null, wholly on the screen, and gives
// it the keyboard, unless that is to stay where it is. It stays above the owner, and stays when the
// owner is deleted.
void ShowOver(QWidget& window, QWidget* owner, bool withKeyboard = true);

}  // namespace tarnwell::ui
