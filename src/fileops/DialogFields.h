// What the small dialogs of file operations answer with.
#pragma once

#include <string>

#include "base/Colour.h"
#include "forms/Form.h"

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

// Puts the dialog over the middle of the main form.
inline void CentreOn(const forms::Form& mainForm, forms::Form& dialog) {
  dialog.Left = mainForm.Left + mainForm.Width / 2 - dialog.Width / 2;
  dialog.Top = mainForm.Top + mainForm.Height / 2 - dialog.Height / 2;
}

}  // namespace tarnwell::fileops
