// Stands where a list has no room: its text, wrapped and as large as fits.
#pragma once

#include <QLabel>

namespace tarnwell::ui {

class NoRoomLabel : public QLabel {
 public:
  explicit NoRoomLabel(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarnwell::ui
