// What the badges of a comparison mean, at the right end of the status line: each kind that occurs
// in the list, painted as in its rows, and a word for it.
#pragma once

#include <QLabel>
#include <QString>
#include <vector>

#include "lister/rows/Comparison.h"
#include "ui/list/ListerStyle.h"

namespace tarnwell::ui {

class ListerLegend : public QLabel {
 public:
  // Lies on the status line; the style outlives it.
  ListerLegend(const ListerStyle& style, QWidget* statusLine);

  // Shows the first of the kinds, as many as fit into `room` pixels, and gives the pixels it takes
  // of the right end; 0 where it shows none.
  int Show(lister::CompareMarks kinds, int room);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Entry {
    lister::CompareMarks Mark;
    QString Word;
    int Width;  // pixels, the space before it included
  };

  const ListerStyle& style_;
  std::vector<Entry> entries_;
};

}  // namespace tarnwell::ui
