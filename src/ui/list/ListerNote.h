// What stands in the middle of a list without rows: why there are none, and a button where the
// filter is the reason.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "lister/rows/ListRows.h"
#include "ui/list/ListerStyle.h"

namespace tarnwell::ui {

class ListerNote : public QObject {
  Q_OBJECT

 public:
  // Stands over the view's viewport, which goes on getting the mouse there.
  ListerNote(QWidget& view, QWidget& viewport, const QString& buttonName);

  void Show(const lister::EmptyNote& note);
  void ShowStyle(const ListerStyle& style);

 signals:
  void ClearAsked();  // the filter is to go

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QWidget& viewport_;
  QLabel* text_;
  QPushButton* clear_;
};

}  // namespace tarnwell::ui
