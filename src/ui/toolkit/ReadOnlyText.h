// Text to be read and copied, as wide as it is told and as high as it needs: a name or a path is
// broken wherever a line ends.
#pragma once

#include <QPlainTextEdit>

namespace tarnwell::ui {

class ReadOnlyText : public QPlainTextEdit {
 public:
  // More lines than `mostLines` scroll.
  ReadOnlyText(int width, int mostLines, QWidget* parent);

  // Shown as it stands.
  void ShowText(const QString& text);

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Fit();

  const int mostLines_;
};

}  // namespace tarnwell::ui
