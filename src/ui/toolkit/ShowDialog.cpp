#include "ui/toolkit/ShowDialog.h"

#include <QScreen>
#include <algorithm>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

void MoveOntoScreen(QWidget& window, QPoint place, QSize size) {
  const QRect room = window.screen()->availableGeometry();
  // It will have a frame like the one below.
  if (const QWidget* const below = window.parentWidget()) {
    size += below->window()->frameGeometry().size() - below->window()->size();
  }
  const int right = std::max(room.right() + 1 - size.width(), room.left());
  const int bottom = std::max(room.bottom() + 1 - size.height(), room.top());
  window.move(std::clamp(place.x(), room.left(), right), std::clamp(place.y(), room.top(), bottom));
}

void NotePlace(const QDialog& dialog, forms::Form& form) {
  if (!dialog.isVisible()) return;
  form.Left = ToTwips(dialog.pos().x());
  form.Top = ToTwips(dialog.pos().y());
}

void ShowDialog(QDialog& dialog, const forms::Form& form, QWidget* owner) {
  if (owner != nullptr && dialog.parentWidget() != owner) {
    const Qt::WindowModality modality = dialog.windowModality();
    dialog.setParent(owner, dialog.windowFlags());
    dialog.setWindowModality(modality);
  }
  // The window itself has no size of its own before it is shown.
  MoveOntoScreen(dialog, {ToPixels(form.Left), ToPixels(form.Top)},
                 {ToPixels(form.Width), ToPixels(form.Height)});
  dialog.show();
  dialog.raise();
  if (!dialog.testAttribute(Qt::WA_ShowWithoutActivating)) dialog.activateWindow();
}

}  // namespace tarnwell::ui
