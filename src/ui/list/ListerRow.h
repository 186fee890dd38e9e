// Where the parts of a row stand and what they take, for those who paint it and for the mouse.
#pragma once

#include <QFontMetricsF>
#include <QRect>
#include <QString>
#include <algorithm>
#include <cmath>

namespace tarnwell::ui {

inline constexpr int CellMargin = 6;     // left and right of a cell's text, pixels
inline constexpr int ColourBar = 4;      // at the left edge of an item that is coded with a colour
inline constexpr int SelectionGap = 14;  // between icon and name, where the arrow stands
inline constexpr int IconGap = 5;        // the same in a folder list, which has no arrow

// The margin of a cell: one that is hardly wider than "..." has less.
inline int MarginOf(int width) {
  return width < 2 * CellMargin + 20 ? CellMargin / 3 : CellMargin;
}

struct NameCell {
  QRect Icon;
  QRect Gap;
  QRect Text;  // what is left for the name; may be empty
};

// The parts of the name cell that fills `cell`, with an icon of `side` pixels.
inline NameCell PartsOfName(const QRect& cell, int side, bool fileList) {
  const int left = cell.left() + (fileList ? ColourBar + 3 : 2);
  const int gap = fileList ? SelectionGap : IconGap;
  const int text = left + side + gap;
  return {.Icon = QRect(left, cell.top() + (cell.height() - side) / 2, side, side),
          .Gap = QRect(left + side, cell.top(), gap, cell.height()),
          .Text = QRect(text, cell.top(), std::max(0, cell.right() + 1 - CellMargin - text),
                        cell.height())};
}

// Pixels in which the text stands uncut: metrics in whole pixels round down as well as up, while
// text is cut by its exact width.
inline int UncutWidth(const QFontMetrics& metrics, const QString& text) {
  return static_cast<int>(std::ceil(QFontMetricsF(metrics).horizontalAdvance(text)));
}

}  // namespace tarnwell::ui
