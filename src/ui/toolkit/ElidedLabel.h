// A line of text that gives up its middle where it has too little room, and then has the whole as
// its tool-tip.
#pragma once

#include <QLabel>

namespace tarnwell::ui {

class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  }

  // Shown as it stands.
  void ShowText(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Elide();

  QString whole_;
};

}  // namespace tarnwell::ui
