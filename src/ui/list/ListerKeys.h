// From Qt's keys and modifiers to those that a list knows.
#pragma once

#include <QKeyEvent>
#include <QString>

namespace tarnwell::ui {

// The code that ListInput::KeyDown takes; 0 for a key that no list knows. Letters and digits
// have one only together with Ctrl or Alt: by themselves they are text.
int KeyCodeOf(const QKeyEvent& event);
// The mask of lister::MouseEvent.
int ShiftOf(Qt::KeyboardModifiers modifiers);
// What the key types; empty for a key that types nothing, or is pressed with Ctrl or Alt.
QString TypedText(const QKeyEvent& event);

}  // namespace tarnwell::ui
