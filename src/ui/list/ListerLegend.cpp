#include "ui/list/ListerLegend.h"

#include <QPainter>
#include <QStringList>

#include "ui/list/ListerMarks.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

constexpr int EntryGap = 8;
constexpr int WordGap = 4;
constexpr int EndGap = 5;

}  // namespace

ListerLegend::ListerLegend(const ListerStyle& style, QWidget* statusLine)
    : QLabel(statusLine), style_(style) {
  setAutoFillBackground(true);
  hide();
}

int ListerLegend::Show(lister::CompareMarks kinds, int room) {
  const struct {
    bool Occurs;
    lister::CompareMarks Mark;
    QString Word;
  } all[] = {{kinds.OnlyHere, {.OnlyHere = true}, QStringLiteral("only here")},
             {kinds.Newer, {.Newer = true}, QStringLiteral("newer")},
             {kinds.Older, {.Older = true}, QStringLiteral("older")},
             {kinds.Larger, {.Larger = true}, QStringLiteral("larger")},
             {kinds.Smaller, {.Smaller = true}, QStringLiteral("smaller")}};
  entries_.clear();
  QStringList words, meanings;
  int width = EndGap;
  bool fits = true;
  for (const auto& [occurs, mark, word] : all) {
    if (!occurs) continue;
    words << word;
    meanings << MarksText(mark);
    const int more = EntryGap + MarksWidth(mark) + WordGap + fontMetrics().horizontalAdvance(word);
    fits = fits && width + more <= room;
    if (!fits) continue;
    width += more;
    entries_.push_back({mark, word, more});
  }
  setVisible(!entries_.empty());
  if (entries_.empty()) return 0;
  const QRect line = parentWidget()->rect();
  setGeometry(line.right() + 1 - width, line.top(), width, line.height());
  // In full, whatever there is room for.
  setAccessibleName(QStringLiteral("Marks: ") + words.join(QStringLiteral(", ")));
  setToolTip(PlainToolTip(meanings.join(QLatin1Char('\n'))));
  update();
  return width;
}

void ListerLegend::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  int left = 0;
  for (const Entry& entry : entries_) {
    const QRect badge(left + EntryGap, 0, MarksWidth(entry.Mark), height());
    PaintMarks(painter, badge, entry.Mark, style_.LegendMore, style_.LegendLess);
    left += entry.Width;
    const QRect word(badge.right() + 1 + WordGap, 0, left - badge.right() - 1 - WordGap, height());
    painter.drawText(word, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, entry.Word);
  }
}

}  // namespace tarnwell::ui
