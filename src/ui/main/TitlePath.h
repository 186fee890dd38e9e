// The path in a pane's title. Where there is no room for it, it is drawn without its beginning;
// what it says to others stays whole.
#pragma once

#include <QColor>
#include <QLineEdit>

namespace tarnwell::ui {

class TitlePath : public QLineEdit {
 public:
  explicit TitlePath(QWidget* parent);

  // A stripe before the path; none for a colour that is not valid.
  void ShowAccent(const QColor& colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintCut(const QRect& room);

  QColor accent_;
};

}  // namespace tarnwell::ui
