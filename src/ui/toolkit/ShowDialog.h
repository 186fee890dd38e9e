// Showing a dialog at the place that its form has.
#pragma once

#include <QDialog>

#include "forms/Form.h"

namespace tarnwell::ui {

// Over `owner`, which may be null, as modal as it is already, and wholly on the screen.
void ShowDialog(QDialog& dialog, const forms::Form& form, QWidget* owner);

}  // namespace tarnwell::ui
