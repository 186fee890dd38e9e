// A page of a dialog that scrolls where the screen has no room for all of it.
#pragma once

#include <QScrollArea>

namespace tarnwell::ui {

// As large as the page, which it owns, but of a height that leaves room on the screen for what a
// dialog has beside it. Scrolls up and down alone.
class ScrollPage : public QScrollArea {
 public:
  explicit ScrollPage(QWidget* page, QWidget* parent = nullptr);

  // Brings the part of the page into sight whenever it gets the keyboard by other means than Tab,
  // which does that by itself, and the mouse, under which nothing is to move.
  void KeepInSight(QWidget& part) { part.installEventFilter(this); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tarnwell::ui
