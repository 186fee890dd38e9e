// What stands in the middle of a list without rows: why there are none, and a button where the
// filter is the reason.
#pragma once

#include <QAbstractScrollArea>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "lister/rows/ListRows.h"
#include "ui/list/ListerStyle.h"

namespace tarnwell::ui {

class ListerNote : public QObject {
  Q_OBJECT

 public:
  // Stands over the view, which goes on getting the mouse there, but is no part of it: what reads
  // the screen finds only rows in a view. Both outlive the note.
  ListerNote(QWidget& parent, QAbstractScrollArea& view, const QString& place);

  void Show(const lister::EmptyNote& note);
  void ShowStyle(const ListerStyle& style);

 signals:
  void ClearAsked();  // the filter is to go

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QAbstractScrollArea& view_;
  QLabel* text_;
  QPushButton* clear_;
};

}  // namespace tarnwell::ui
