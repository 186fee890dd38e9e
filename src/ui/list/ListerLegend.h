// What the badges of a comparison mean, at the right end of the status line: each kind that occurs
// in the list, painted as in its rows, and a word for it. A press on one is to select the rows that
// bear it. The keyboard comes in by Enter alone, goes from one to the next by the arrows, presses
// by Space, and leaves by Escape.
#pragma once

#include <QAbstractButton>
#include <QWidget>
#include <vector>

#include "lister/rows/Comparison.h"
#include "ui/list/ListerStyle.h"

namespace tarnwell::ui {

class LegendEntry : public QAbstractButton {
  Q_OBJECT

 public:
  LegendEntry(lister::CompareMarks mark, const QString& word, const QString& place,
              const ListerStyle& style, QWidget* legend);

  lister::CompareMarks Mark() const { return mark_; }
  QSize sizeHint() const override;

 signals:
  void Asked(lister::CompareMarks mark, bool adds);
  void StepAsked(int step);  // to another entry
  void LeaveAsked();
  void FocusChanged();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  const lister::CompareMarks mark_;
  const ListerStyle& style_;
};

class ListerLegend : public QWidget {
  Q_OBJECT

 public:
  // Lies on the status line of the pane, which counts from 0; the style outlives it.
  ListerLegend(const QString& place, const ListerStyle& style, QWidget* statusLine);

  // Shows the first of the kinds, as many as fit into `room` pixels, with the keyboard among them
  // those up to where it is; gives the pixels it takes of the right end, 0 where it shows none.
  int Show(lister::CompareMarks kinds, int room);
  // Gives the keyboard to the first entry on show; false where there is none.
  bool Enter();
  bool HasKeyboard() const;

 signals:
  // The rows that bear the mark are wanted, `adds`: besides what is selected. By key the keyboard
  // is to stay here.
  void Asked(lister::CompareMarks mark, bool adds);
  void LeaveAsked();    // to the list
  void FocusChanged();  // here, away, or between entries

 private:
  void Step(int step);
  std::vector<LegendEntry*> Occurring() const;

  std::vector<LegendEntry*> entries_;  // one for each kind, from the left
  lister::CompareMarks kinds_;         // as they were shown last
  int room_ = 0;
};

}  // namespace tarnwell::ui
