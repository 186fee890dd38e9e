#include "ui/ShowDialog.h"

#include <QScreen>
#include <algorithm>

#include "ui/Convert.h"

namespace tarnwell::ui {

void ShowDialog(QDialog& dialog, const forms::Form& form, QWidget* owner) {
  if (owner != nullptr) {
    dialog.setParent(owner, dialog.windowFlags());
    dialog.setWindowModality(Qt::ApplicationModal);
  }
  const QRect room = dialog.screen()->availableGeometry();
  const int right = std::max(room.right() - dialog.width(), room.left());
  const int bottom = std::max(room.bottom() - dialog.height(), room.top());
  dialog.move(std::clamp(ToPixels(form.Left), room.left(), right),
              std::clamp(ToPixels(form.Top), room.top(), bottom));
  dialog.show();
  dialog.raise();
  dialog.activateWindow();
}

}  // namespace tarnwell::ui
