// Colour values that stand for a colour of the desktop.
#pragma once

#include "base/Colour.h"

namespace tarnwell::ui {

// The literal colour of a value that may be a system colour: one with the highest bit set and a
// number of Win32's GetSysColor in its low byte. Any other value gives its low three bytes.
base::Colour TranslateColour(base::Colour colour);

}  // namespace tarnwell::ui
