// The window of one form: shows the form's state and calls its methods; decides nothing.
#pragma once

#include <QWidget>
#include <exception>

#include "base/Measure.h"
#include "forms/Form.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

class FormWindow : public forms::FormView {
 public:
  // The widget of the window; lives as long as this object.
  virtual QWidget& Widget() = 0;
  // Brings the widgets up to the form's state; those that show it already are not touched.
  virtual void Sync() = 0;
  // Writes the size that the content needs into the form.
  virtual void Measure() = 0;
  // Shows the window at the form's place. `owner` may be null.
  virtual void Show(QWidget* owner) = 0;

  void Touched() final {
    if (pending_) return;
    pending_ = true;
    // As an event, which comes before the painting that is due by then: so what changes is painted
    // once.
    QMetaObject::invokeMethod(
        &Widget(),
        [this] {
          pending_ = false;
          if (!closed_) Sync();
        },
        Qt::QueuedConnection);
  }
  void Refresh() final {
    Sync();
    if (Widget().isVisible()) Widget().repaint();
  }

  // The form has been unloaded and may be gone; the window is not to look at it any more.
  void Close() { closed_ = true; }
  bool IsClosed() const { return closed_; }

 private:
  bool pending_ = false;  // a Sync is due
  bool closed_ = false;
};

// Runs what an event of the user asks for, where the window has something to do afterwards. A
// failure that nothing below has told goes to the terminal.
template <typename Work>
void Guarded(Work work) {
  try {
    work();
  } catch (const std::exception& error) {
    qWarning("tarnwell: %s", error.what());
  }
}

}  // namespace tarnwell::ui
