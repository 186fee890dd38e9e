// Shows a window's keys to the form before the list that has the keyboard sees them. Keys of menus,
// text fields and drop-down lists are theirs alone.
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

namespace tarnwell::ui {

class WindowKeys : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    std::function<void(int code, int shift)> Down;  // as the form's keyboard takes them
    std::function<void()> Up;                       // any key
    std::function<void()> Back;                     // a menu had the keys
    std::function<bool(const QWidget*)> IsFormKey;  // whether keys of the widget are the form's
  };
  WindowKeys(QWidget& window, Actions actions);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& window_;
  Actions actions_;
  const QEvent* done_ = nullptr;  // the key that was acted on last, until another event comes by
};

// What the menu key does where the keyboard is, which keyboards may lack.
void PressMenuKey(QWidget* focus);

}  // namespace tarnwell::ui
