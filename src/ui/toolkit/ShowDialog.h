// Showing a dialog at the place that its form has.
#pragma once

#include <QDialog>

#include "forms/Form.h"

namespace tarnwell::ui {

// Modal over `owner`, which may be null, and wholly on the screen.
void ShowDialog(QDialog& dialog, const forms::Form& form, QWidget* owner);

}  // namespace tarnwell::ui
