// A label that does something when it is clicked: underlined, in the colour of its form's label,
// and reached by the keyboard like a button.
#pragma once

#include <QAbstractButton>

namespace tarnwell::ui {

class LinkLabel : public QAbstractButton {
 public:
  // Room around the text for the frame of the keyboard, in logical pixels.
  static constexpr QSize FocusRoom{3, 2};

  explicit LinkLabel(QWidget* parent);

  void SetTextColour(const QColor& colour);

  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor textColour_;
};

}  // namespace tarnwell::ui
