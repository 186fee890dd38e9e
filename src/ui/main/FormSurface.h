// The inside of the main window: what is seen of it between its controls, and the mouse there.
//
// Tells where the mouse is and when a button goes down and up; knows nothing of what can be
// dragged.
#pragma once

#include <QColor>
#include <QPointer>
#include <QRect>
#include <QWidget>
#include <functional>
#include <vector>

#include "forms/Controls.h"
#include "ui/toolkit/WheelNotches.h"

namespace tarnwell::ui {

class FormSurface : public QWidget {
 public:
  // Places are in twips, of the middle of a pixel: so no place in a gap between two controls is
  // outside it by rounding.
  struct Actions {
    std::function<void(float x, float y)> MouseMove;
    std::function<void(float x, float y)> MouseDown;  // follows a move to the same place
    std::function<void()> MouseUp;                    // follows every MouseDown
    std::function<void(int delta)> WheelTurned;       // by a notch
    std::function<void()> Resized;
  };
  // A rectangle that is painted. A colour that is not valid is left out.
  struct Patch {
    QRect Place;
    QColor Fill;
    QColor Frame;
    bool operator==(const Patch&) const = default;
  };

  FormSurface(Actions actions, QWidget* parent);

  void ShowPointer(forms::MousePointer pointer);
  // The patches, the later ones on top; and the line from the left edge to the right one, at `top`.
  void ShowShapes(std::vector<Patch> patches, int top, const QColor& line);

  // Something else takes the mouse: the button counts as released.
  void EndDrag();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Teller = std::function<void(float, float)>;
  static void Tell(const Teller& teller, const QMouseEvent& event);
  bool IsOwnPlace(const QMouseEvent& event) const;

  Actions actions_;
  bool down_ = false;           // a button, and no release was told yet
  QPointer<QWidget> keyboard_;  // what has the focus meanwhile
  WheelNotches wheel_;
  std::vector<Patch> patches_;
  int lineTop_ = -1;
  QColor line_;
};

}  // namespace tarnwell::ui
