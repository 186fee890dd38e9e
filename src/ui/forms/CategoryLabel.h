// A label that chooses a page of a dialog: coloured text on white, one of a group of which one is
// chosen. The keyboard gets there as to option buttons.
#pragma once

#include <QRadioButton>
#include <functional>

namespace tarnwell::ui {

class CategoryLabel : public QRadioButton {
 public:
  // `hovered` is told of each move of the mouse over the label.
  CategoryLabel(std::function<void()> hovered, QWidget* parent);

  void SetTextColour(const QColor& colour);

  QSize sizeHint() const override;

 protected:
  bool hitButton(const QPoint& at) const override { return rect().contains(at); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  std::function<void()> hovered_;
  QColor textColour_;
};

}  // namespace tarnwell::ui
