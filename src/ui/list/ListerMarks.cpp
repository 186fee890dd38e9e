#include "ui/list/ListerMarks.h"

#include <QPointF>

#include "ui/toolkit/Contrast.h"

namespace tarnwell::ui {
namespace {

constexpr int SymbolSide = 12;
constexpr int ArrowSide = 7;
constexpr int BadgeGap = 6;
constexpr int ArrowedWidth = SymbolSide + 2 + ArrowSide;

// By date (the same, newer, older), then by size (the same, larger, smaller).
constexpr const char* MarkTexts[3][3] = {
    {"", "Larger than in the other list", "Smaller than in the other list"},
    {"Newer than in the other list", "Newer and larger than in the other list",
     "Newer and smaller than in the other list"},
    {"Older than in the other list", "Older and larger than in the other list",
     "Older and smaller than in the other list"},
};

bool HasDate(lister::CompareMarks marks) {
  return marks.Newer || marks.Older;
}
bool HasSize(lister::CompareMarks marks) {
  return marks.Larger || marks.Smaller;
}

// A disc with a plus.
void PaintOnlyHere(QPainter& painter, const QRectF& place, const QColor& colour) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(place);
  // White where that stands out, so that the disc looks alike in all lists of a light skin.
  const bool white = Contrast(Qt::white, colour) >= MarkContrast;
  painter.setPen(QPen(white ? Qt::white : Qt::black, 1.6));
  const QPointF middle = place.center();
  painter.drawLine(middle - QPointF(3, 0), middle + QPointF(3, 0));
  painter.drawLine(middle - QPointF(0, 3), middle + QPointF(0, 3));
}

void PaintClock(QPainter& painter, const QRectF& place, const QColor& colour) {
  painter.setPen(QPen(colour, 1.3, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(place.adjusted(1, 1, -1, -1));
  const QPointF middle = place.center();
  painter.drawLine(middle, middle - QPointF(0, 3.2));
  painter.drawLine(middle, middle + QPointF(2.4, 0));
}

// Three bars, each longer than the one above it.
void PaintBars(QPainter& painter, const QRectF& place, const QColor& colour) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  for (int bar = 0; bar < 3; ++bar) {
    painter.drawRect(QRectF(place.left() + 1, place.top() + 1 + 4 * bar, 4 + 3 * bar, 2));
  }
}

void PaintArrow(QPainter& painter, const QPointF& middle, bool up, const QColor& colour) {
  const double tip = up ? -3 : 3;
  const QPointF corners[] = {middle + QPointF(0, tip), middle + QPointF(ArrowSide / 2.0, -tip),
                             middle + QPointF(-ArrowSide / 2.0, -tip)};
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPolygon(corners, 3);
}

}  // namespace

int MarksWidth(lister::CompareMarks marks) {
  int width = marks.OnlyHere ? SymbolSide + BadgeGap : 0;
  if (HasDate(marks)) width += ArrowedWidth + BadgeGap;
  if (HasSize(marks)) width += ArrowedWidth + BadgeGap;
  return width;
}

void PaintMarks(QPainter& painter, const QRect& area, lister::CompareMarks marks,
                const QColor& more, const QColor& less) {
  if (!marks.Any()) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const int top = area.top() + (area.height() - SymbolSide) / 2;
  int right = area.right() + 1;
  const auto paint = [&](auto symbol, bool up, bool arrowed) {
    const QColor& colour = up ? more : less;
    const int left = right - (arrowed ? ArrowedWidth : SymbolSide);
    symbol(painter, QRectF(left, top, SymbolSide, SymbolSide), colour);
    if (arrowed) {
      PaintArrow(painter, QPointF(right - ArrowSide / 2.0, top + SymbolSide / 2.0), up, colour);
    }
    right = left - BadgeGap;
  };
  // From the right end on, so that those of one kind stand below each other.
  if (HasSize(marks)) paint(PaintBars, marks.Larger, true);
  if (HasDate(marks)) paint(PaintClock, marks.Newer, true);
  if (marks.OnlyHere) paint(PaintOnlyHere, true, false);
  painter.restore();
}

QString MarksText(lister::CompareMarks marks) {
  if (marks.OnlyHere) return QStringLiteral("Only in this list");
  const int date = !HasDate(marks) ? 0 : marks.Newer ? 1 : 2;
  const int size = !HasSize(marks) ? 0 : marks.Larger ? 1 : 2;
  return QString::fromLatin1(MarkTexts[date][size]);
}

}  // namespace tarnwell::ui
