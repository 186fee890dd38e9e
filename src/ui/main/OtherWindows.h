// The program's other windows while the main window is minimised or hidden: they go and come with
// it.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

namespace tarnwell::ui {

class OtherWindows : public QObject {
 public:
  // `bringBack` is to show `main` before it returns.
  OtherWindows(QWidget& main, std::function<void()> bringBack);

  void Hide();
  // Those that Hide has hidden, and that have not been closed since.
  void Show();
  // While on, the main window is brought back before another one opens: a question, say, that would
  // stand where nobody looks for it.
  void Watch(bool on);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  bool IsOther(const QWidget& widget) const;

  QWidget& main_;
  std::function<void()> bringBack_;
  std::vector<QPointer<QWidget>> hidden_;
};

}  // namespace tarnwell::ui
