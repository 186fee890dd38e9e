#include "ui/list/ListerDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cstddef>

#include "lister/rows/CellText.h"
#include "ui/list/ListerEmblems.h"
#include "ui/list/ListerMarks.h"
#include "ui/list/ListerModel.h"
#include "ui/list/ListerRow.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

using lister::HeadingId;
using lister::ItemColour;
using lister::RowId;

namespace {

constexpr double HiddenOpacity = 0.6;
constexpr double CutOpacity = 0.35;

bool IsName(const QModelIndex& index) {
  return index.column() == static_cast<int>(HeadingId::Name);
}

// The arrow of a selected item, pointing at the name.
void PaintArrow(QPainter& painter, const QRect& gap, const QColor& colour) {
  const QPointF middle(gap.left() + gap.width() / 2.0, gap.top() + gap.height() / 2.0);
  const QPointF corners[] = {middle + QPointF(-3, -4.5), middle + QPointF(3, 0),
                             middle + QPointF(-3, 4.5)};
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPolygon(corners, 3);
  painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace

ListerDelegate::ListerDelegate(const lister::ListRows& rows, const lister::ListAppearance& shown,
                               const ListerStyle& style, QObject* parent)
    : QStyledItemDelegate(parent),
      rows_(rows),
      table_(shown.Table),
      style_(style),
      fileList_(lister::IsFileList(shown.Id)) {}

void ListerDelegate::PaintCell(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index, const PaintedRow& row) const {
  if (IsName(index)) {
    PaintName(painter, option, index, row);
    return;
  }
  const int margin = MarginOf(option.rect.width());
  const QRect area = option.rect.adjusted(margin, 0, -margin, 0);
  if (area.width() <= 0) return;
  const auto heading = static_cast<HeadingId>(index.column());
  // All of the column alike, so that what stands in it lines up.
  const bool brief = table_.IsBrief(heading, ToTwips(option.rect.width()));
  const RowId item = ListerModel::RowOf(index);
  const QString text =
      ToQString(brief ? rows_.BriefText(item, heading) : rows_.CellText(item, heading));
  if (text.isEmpty()) return;
  painter.setPen(style_.ColoursOf(row.State.IsSelected, row.IsHovered).Secondary);
  painter.drawText(
      area, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine,
      option.fontMetrics.elidedText(
          // Paths differ at their ends.
          text, heading == HeadingId::Path ? Qt::ElideLeft : Qt::ElideRight, area.width()));
}

void ListerDelegate::PaintName(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index, const PaintedRow& row) const {
  const RowColours& colours = style_.ColoursOf(row.State.IsSelected, row.IsHovered);
  const NameCell parts = PartsOfName(option.rect, option.decorationSize.width(), fileList_);
  painter.save();
  painter.setClipRect(option.rect, Qt::IntersectClip);

  const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
  if (row.State.IsHidden || row.State.IsCut) {
    painter.setOpacity(row.State.IsCut ? CutOpacity : HiddenOpacity);
  }
  icon.paint(&painter, parts.Icon);
  if (row.State.IsLink) PaintLinkEmblem(painter, parts.Icon, row.State.IsBroken);
  painter.setOpacity(1);

  QRect area = parts.Text;
  const int marks = MarksWidth(row.State.Marks);
  // A name that the badges would cut to nothing goes first.
  if (marks > 0 && area.width() - marks >= 3 * option.fontMetrics.averageCharWidth()) {
    PaintMarks(painter, area, row.State.Marks, style_.Arrow, colours.Secondary);
    area.setRight(area.right() - marks);
  }
  const QString text =
      option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle, area.width());

  if (row.State.Colour != ItemColour::Default) {
    const auto colour = static_cast<std::size_t>(row.State.Colour);
    const QRect tint(area.left() - 3, area.top() + 2,
                     std::min(option.fontMetrics.horizontalAdvance(text), area.width()) + 7,
                     area.height() - 4);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(style_.Tints[colour]);
    painter.drawRoundedRect(tint, 3, 3);
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
  if (fileList_ && (row.State.IsSelected || row.IsGapHovered)) {
    if (!row.State.IsSelected) painter.setOpacity(0.35);
    PaintArrow(painter, parts.Gap, style_.Arrow);
    painter.setOpacity(1);
  }
  if (area.width() > 0) {
    // The tint behind the name bears the colour of the text alone.
    const bool faint =
        (row.State.IsHidden || row.State.IsCut) && row.State.Colour == ItemColour::Default;
    painter.setPen(faint ? colours.Secondary : colours.Text);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
  }
  painter.restore();
}

int ListerDelegate::NameWidth(const QFontMetrics& metrics, RowId row) const {
  return metrics.horizontalAdvance(ToQString(rows_.CellText(row, HeadingId::Name)));
}

int ListerDelegate::RowHeight(const QFontMetrics& metrics, const QSize& icon) const {
  return std::max(metrics.height() + 6, icon.height() + 5);
}

QSize ListerDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  int width = UncutWidth(option.fontMetrics, index.data().toString()) + 2 * CellMargin;
  const auto heading = static_cast<HeadingId>(index.column());
  // A narrower column would drop the seconds.
  if (lister::IsDate(heading)) width = std::max(width, ToPixels(table_.Needs(heading).Cell));
  if (IsName(index)) {
    const int side = option.decorationSize.width();
    width += PartsOfName(QRect(), side, fileList_).Text.left() - CellMargin +
             MarksWidth(rows_.StateOf(ListerModel::RowOf(index)).Marks);
  }
  return {width, RowHeight(option.fontMetrics, option.decorationSize)};
}

bool ListerDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  QStringList lines;
  const QRect seen = option.rect.intersected(view->viewport()->rect());
  const bool cut = sizeHint(option, index).width() > seen.width();
  if (cut) lines << index.data().toString();
  const RowId row = ListerModel::RowOf(index);
  if (index.column() == static_cast<int>(HeadingId::Size)) {
    const QString note = ToQString(SizeNote(rows_, row));
    if (!note.isEmpty()) lines << note;
  }
  const QString link = ToQString(rows_.LinkNote(row));
  if (!link.isEmpty()) lines << link;
  const QString marks = MarksText(rows_.StateOf(row).Marks);
  if (!marks.isEmpty()) lines << marks;
  QToolTip::showText(event->globalPos(), PlainToolTip(lines.join(QLatin1Char('\n'))),
                     view->viewport(), option.rect);
  return true;
}

}  // namespace tarnwell::ui
