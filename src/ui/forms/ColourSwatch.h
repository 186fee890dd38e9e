// A button that shows a colour, and the pointer that carries one.
#pragma once

#include <QCursor>
#include <QPushButton>

namespace tarnwell::ui {

// Its accessible description is the colour, as "#rrggbb". The mark of the keyboard stands around
// the colour, not on it, and so is seen whatever that is.
class ColourSwatch : public QPushButton {
 public:
  ColourSwatch(const QString& name, QWidget* parent);

  void ShowColour(const QColor& colour);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
};

// An arrow with a drop of the colour, for a screen of so many pixels to a logical one.
QCursor PointerHolding(const QColor& colour, qreal ratio);

}  // namespace tarnwell::ui
