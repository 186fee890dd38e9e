// Stands where a list has no room: its text, wrapped and as large as fits, cut where none does.
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
