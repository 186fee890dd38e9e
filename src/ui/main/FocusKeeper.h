// Has the keyboard when none of the window's controls is to have it: hands all that is typed on to
// another widget, without giving it the focus. Is on the screen for the toolkit only.
#pragma once

#include <QWidget>
#include <functional>

namespace tarnwell::ui {

class FocusKeeper : public QWidget {
 public:
  // `typist` says who gets the keys; it may give null.
  FocusKeeper(std::function<QWidget*()> typist, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  std::function<QWidget*()> typist_;
};

}  // namespace tarnwell::ui
