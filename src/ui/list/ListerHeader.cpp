#include "ui/list/ListerHeader.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QToolTip>
#include <QTreeView>
#include <array>

#include "ui/list/ListerRow.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

using lister::HeadingCount;
using lister::HeadingId;

namespace {

constexpr int ArrowWidth = 8;
constexpr int ArrowGap = 5;
constexpr int LeastWidth = ToPixels(lister::LeastHeadingWidth);
constexpr int MostWidth = ToPixels(lister::MostHeadingWidth);

struct SortMark {
  int Level = -1;  // counted from 0; -1 when the list is not sorted by the heading
  bool Ascending = true;
};

SortMark MarkOf(const lister::ListerControl& control, int heading) {
  std::string key;
  std::string direction;
  for (int level = 0; level < HeadingCount && control.GetSortKey(level, key, direction); ++level) {
    if (control.Shown().Table.FindByKey(key) == heading) return {level, direction == "asc"};
  }
  return {};
}

bool HasSecondLevel(const lister::ListerControl& control) {
  std::string key;
  std::string direction;
  return control.GetSortKey(1, key, direction);
}

}  // namespace

ListerHeader::ListerHeader(lister::ListerControl& control, const ListerStyle& style,
                           QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), control_(control), style_(style) {
  setSectionsMovable(true);
  setStretchLastSection(false);
  setHighlightSections(false);
  setMinimumSectionSize(LeastWidth);
  setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  setResizeContentsPrecision(0);  // by the rows on the screen
  connect(this, &QHeaderView::sectionResized, this,
          [this](int section, int, int pixels) { WriteWidths(section, pixels); });
  connect(this, &QHeaderView::sectionMoved, this, [this] { WriteOrder(); });
}

void ListerHeader::BecomeHeaderOf(QTreeView& tree) {
  tree.setHeader(this);
  // A tree view takes both from any header that it is given.
  setSectionsClickable(true);
  setFirstSectionMovable(true);
}

void ListerHeader::ShowHeadings() {
  if (showing_ || writing_ || count() != HeadingCount) return;
  const QScopedValueRollback guard(showing_, true);
  const lister::Headings& table = control_.Shown().Table;
  const std::array<HeadingId, HeadingCount> order = table.Order();
  for (int place = 0; place < HeadingCount; ++place) {
    const HeadingId id = order[static_cast<std::size_t>(place)];
    const int section = static_cast<int>(id);
    moveSection(visualIndex(section), place);
    setSectionHidden(section, !table.IsShown(id));
  }
  ShowWidths();
  viewport()->update();
}

void ListerHeader::ShowWidths() {
  const lister::Headings& table = control_.Shown().Table;
  // The name fills a list of any width until the user sizes it.
  setMaximumSectionSize(table.NameSized ? MostWidth : -1);
  const lister::ColumnWidths widths = WidthsIn(table, ToTwips(viewport()->width()));
  for (int section = 0; section < HeadingCount; ++section) {
    const base::Twips width = widths[static_cast<std::size_t>(section)];
    if (width > 0) resizeSection(section, ToPixels(width));
  }
}

void ListerHeader::resizeEvent(QResizeEvent* event) {
  QHeaderView::resizeEvent(event);
  if (showing_ || writing_ || count() != HeadingCount || control_.Shown().Table.NameSized) return;
  const QScopedValueRollback guard(showing_, true);
  ShowWidths();
}

QSize ListerHeader::sizeHint() const {
  return {QHeaderView::sizeHint().width(), fontMetrics().height() + 7};
}

QSize ListerHeader::sectionSizeFromContents(int section) const {
  return {CaptionWidth(section, MarkOf(control_, section).Level >= 0), sizeHint().height()};
}

int ListerHeader::CaptionWidth(int section, bool sorts) const {
  const QString caption = model()->headerData(section, orientation()).toString();
  const int mark = sorts ? 2 * ArrowWidth + ArrowGap : 0;
  return UncutWidth(fontMetrics(), caption) + 2 * CellMargin + mark;
}

void ListerHeader::mouseReleaseEvent(QMouseEvent* event) {
  QHeaderView::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton) emit Released();
}

void ListerHeader::contextMenuEvent(QContextMenuEvent* event) {
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const lister::Headings& table = control_.Shown().Table;
  for (const HeadingId id : table.Order()) {
    QAction* const entry = menu->addAction(ToQString(table[id].Caption));
    entry->setCheckable(true);
    entry->setChecked(table.IsShown(id));
    entry->setEnabled(id != HeadingId::Name);
    connect(entry, &QAction::triggered, this,
            [this, id] { emit ToggleAsked(static_cast<int>(id)); });
  }
  menu->addSeparator();
  if (const int section = logicalIndexAt(event->pos()); section >= 0) {
    connect(menu->addAction(QStringLiteral("Size column to contents")), &QAction::triggered, this,
            [this, section] { emit sectionHandleDoubleClicked(section); });
  }
  QAction* const release = menu->addAction(QStringLiteral("Automatic column widths"));
  release->setEnabled(table.NameSized);
  connect(release, &QAction::triggered, this, &ListerHeader::ReleaseAsked);
  // A low list has no room for its toolbar.
  if (lister::IsFileList(control_.Id())) {
    menu->addSeparator();
    connect(menu->addAction(QStringLiteral("Filter...")), &QAction::triggered, this,
            &ListerHeader::FilterAsked);
  }
  menu->popup(event->globalPos());
}

void ListerHeader::WriteWidths(int section, int pixels) {
  // A hidden section reports no width.
  if (showing_ || pixels <= 0) return;
  lister::ColumnWidths widths{};
  for (int shown = 0; shown < HeadingCount; ++shown) {
    if (!isSectionHidden(shown)) {
      widths[static_cast<std::size_t>(shown)] =
          ToTwips(shown == section ? pixels : sectionSize(shown));
    }
  }
  const QScopedValueRollback guard(writing_, true);
  emit Sized(widths);
}

void ListerHeader::WriteOrder() {
  if (showing_) return;
  const QScopedValueRollback guard(writing_, true);
  // From the left on, each write exchanges places only with headings further to the right.
  for (int place = 0; place < HeadingCount; ++place) {
    const int section = logicalIndex(place);
    if (control_.Shown().Table[static_cast<HeadingId>(section)].Index == place) continue;
    control_.SetHeadingProperty(section, "Index", base::Value(std::int32_t{place}));
  }
}

bool ListerHeader::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QHeaderView::viewportEvent(event);
  auto* const help = static_cast<QHelpEvent*>(event);
  const int section = logicalIndexAt(help->pos());
  if (section < 0) return QHeaderView::viewportEvent(event);
  const QRect place(sectionViewportPosition(section), 0, sectionSize(section), height());
  QString text = model()->headerData(section, orientation(), Qt::ToolTipRole).toString();
  if (sectionSizeFromContents(section).width() > place.intersected(viewport()->rect()).width()) {
    text.prepend(model()->headerData(section, orientation()).toString() + QLatin1Char('\n'));
  }
  QToolTip::showText(help->globalPos(), PlainToolTip(text), viewport(), place);
  return true;
}

void ListerHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  QStyleOptionHeader option;
  initStyleOption(&option);
  initStyleOptionForIndex(&option, section);
  const bool pressed = option.state & QStyle::State_Sunken;
  const bool hovered = option.state & QStyle::State_MouseOver;
  const QColor text = hovered ? style_.HeadingHover : style_.HeadingText;
  QColor line = style_.HeadingText;
  line.setAlphaF(0.25F);

  painter->save();
  painter->fillRect(rect, style_.Heading);
  if (pressed) painter->fillRect(rect, line);
  painter->fillRect(QRect(rect.right(), rect.top() + 4, 1, rect.height() - 8), line);
  if (section == control_.Shown().ActiveHeading) {
    painter->fillRect(QRect(rect.left(), rect.bottom() - 1, rect.width(), 2), style_.HeadingText);
  }
  painter->setPen(text);
  const QRect seen = rect.intersected(viewport()->rect());
  const int margin = MarginOf(seen.width());
  const QRect area = PaintSortMark(painter, seen.adjusted(margin, 0, -margin, 0), section);
  painter->drawText(area, static_cast<int>(option.textAlignment),
                    option.fontMetrics.elidedText(option.text, Qt::ElideRight, area.width()));
  painter->restore();
}

QRect ListerHeader::PaintSortMark(QPainter* painter, const QRect& area, int section) const {
  const SortMark mark = MarkOf(control_, section);
  if (mark.Level < 0 || area.width() < ArrowWidth) return area;
  QRect rest = area;
  if (HasSecondLevel(control_)) {
    const auto number = static_cast<std::uint64_t>(mark.Level) + 1;
    const QString level = ToQString(control_.Forms().Grouped(number));
    const int width = painter->fontMetrics().horizontalAdvance(level);
    painter->drawText(rest, Qt::AlignRight | Qt::AlignVCenter, level);
    rest.setRight(rest.right() - width - 2);
  }
  const QPointF middle(rest.right() - ArrowWidth / 2.0 + 1, rest.center().y() + 0.5);
  const double tip = mark.Ascending ? -2 : 2;
  const QPointF corners[] = {middle + QPointF(-ArrowWidth / 2.0, -tip),
                             middle + QPointF(ArrowWidth / 2.0, -tip), middle + QPointF(0, tip)};
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setBrush(painter->pen().color());
  const QPen pen = painter->pen();
  painter->setPen(Qt::NoPen);
  painter->drawPolygon(corners, 3);
  painter->setPen(pen);
  rest.setRight(rest.right() - ArrowWidth - ArrowGap);
  return rest;
}

void ListerHeader::paintEvent(QPaintEvent* event) {
  // What no section covers, right of the last one.
  QHeaderView::paintEvent(event);
  // The toolkit paints what lies behind the last heading in a colour of its own.
  const int end = length() - offset();
  if (end < viewport()->width()) {
    QPainter(viewport()).fillRect(viewport()->rect().adjusted(end, 0, 0, 0), style_.Heading);
  }
}

}  // namespace tarnwell::ui
