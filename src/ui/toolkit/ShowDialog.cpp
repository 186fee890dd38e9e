#include "ui/toolkit/ShowDialog.h"

#include <QScreen>
#include <algorithm>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

void ShowDialog(QDialog& dialog, const forms::Form& form, QWidget* owner) {
  if (owner != nullptr && dialog.parentWidget() != owner) {
    const Qt::WindowModality modality = dialog.windowModality();
    dialog.setParent(owner, dialog.windowFlags());
    dialog.setWindowModality(modality);
  }
  const QRect room = dialog.screen()->availableGeometry();
  // The window itself has no size of its own before it is shown.
  const int right = std::max(room.right() - ToPixels(form.Width), room.left());
  const int bottom = std::max(room.bottom() - ToPixels(form.Height), room.top());
  dialog.move(std::clamp(ToPixels(form.Left), room.left(), right),
              std::clamp(ToPixels(form.Top), room.top(), bottom));
  dialog.show();
  dialog.raise();
  dialog.activateWindow();
}

}  // namespace tarnwell::ui
