// A list to choose from on a list of the program: known to screen readers by a name of its own, and
// not changed by the wheel.
#pragma once

#include <QComboBox>

namespace tarnwell::ui {

class ListerChoice : public QComboBox {
  Q_OBJECT

 public:
  ListerChoice(const QString& name, QWidget* parent);

  void showPopup() override;

 signals:
  void FocusTaken();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace tarnwell::ui
