// What the small dialogs of file operations answer with.
#pragma once

#include <string>

#include "base/Colour.h"

namespace tarnwell::fileops {

struct DialogFields {
  // The word of the button pressed, "cancel" say, or the name that was typed. Empty when the dialog
  // was closed by other means.
  std::string DialogResult;
  std::string DialogDestination;  // of a copy or move, as the user left it
  bool SendToRecycle = false;     // of a delete
};

// The box of a dialog that cannot be changed; those that can are white.
inline constexpr base::Colour FixedBox = base::Rgb(166, 202, 240);

}  // namespace tarnwell::fileops
