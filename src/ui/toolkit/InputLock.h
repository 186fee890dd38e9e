// Withholds mouse, keys and drops from the program's windows while a file operation runs. They go
// on being painted, moved and resized.
//
// Qt's own modality is not enough: it begins with the modal window's being visible, and it leaves a
// window deaf to its own close button.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <functional>

namespace tarnwell::ui {

class InputLock : public QObject {
 public:
  // Locks all windows. `cancel` runs when the program is asked to quit, or the close button of a
  // locked window is pressed: that happens after the end of this object, from the event loop. It
  // also runs by Escape as long as there is no window to press that in.
  explicit InputLock(std::function<void()> cancel);
  ~InputLock() override;

  // The window that has the input meanwhile, with its children; null for none. A modal window that
  // something else opens has its input as well, and so does the icon in the notification area.
  void Allow(QWidget* window) { allowed_ = window; }
  // Gives the windows their input back.
  void Release();

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  bool IsFree(QObject* receiver) const;
  void BringForward() const;

  std::function<void()> cancel_;
  QPointer<QWidget> allowed_;
  QPointer<QWidget> modalBefore_;
  QPointer<QWindow> toClose_;
  bool toQuit_ = false;
};

}  // namespace tarnwell::ui
