// Showing a dialog at a place that it is told.
#pragma once

#include <QDialog>

#include "forms/Form.h"

namespace tarnwell::ui {

// Over `owner`, which may be null, as modal as it is already, and wholly on the screen. It becomes
// the active window unless it has WA_ShowWithoutActivating.
void ShowDialog(QDialog& dialog, const forms::Form& form, QWidget* owner);

// Where the dialog is becomes the place of its form, by which questions of the form stand; nothing
// before it is shown.
void NotePlace(const QDialog& dialog, forms::Form& form);

// Moves the window there, or as near as it is wholly on the screen when it has the size.
void MoveOntoScreen(QWidget& window, QPoint place, QSize size);

}  // namespace tarnwell::ui
