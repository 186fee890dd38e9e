#include "ui/main/TitlePath.h"

#include <QPainter>
#include <QStyleOptionFrame>

namespace tarnwell::ui {
namespace {

constexpr int PathMargin = 4;
constexpr int FieldMargin = 2;  // that the toolkit leaves on either side of a field's text
constexpr int StripeWidth = 6;

// "..." and as much of the end as there is room for.
QString EndThatFits(const QString& text, const QFontMetrics& metrics, int room) {
  const QString dots = QStringLiteral("...");
  qsizetype tooMuch = 0;
  qsizetype fits = text.size();
  while (fits - tooMuch > 1) {
    const qsizetype start = (tooMuch + fits) / 2;
    (metrics.horizontalAdvance(dots + text.mid(start)) <= room ? fits : tooMuch) = start;
  }
  if (fits < text.size() && text.at(fits).isLowSurrogate()) ++fits;
  return dots + text.mid(fits);
}

}  // namespace

TitlePath::TitlePath(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
  setFrame(false);
  setFocusPolicy(Qt::NoFocus);
  setTextMargins(PathMargin, 0, PathMargin, 0);
  setCursor(Qt::ArrowCursor);
  setMouseTracking(true);
}

void TitlePath::ShowAccent(const QColor& colour) {
  if (colour == accent_) return;
  accent_ = colour;
  setTextMargins(PathMargin + (accent_.isValid() ? StripeWidth : 0), 0, PathMargin, 0);
  update();
}

void TitlePath::paintEvent(QPaintEvent* event) {
  const QRect room = rect().marginsRemoved(textMargins()).adjusted(FieldMargin, 0, -FieldMargin, 0);
  // With a part of it selected the field shows that part.
  if (hasSelectedText() || fontMetrics().horizontalAdvance(text()) <= room.width()) {
    QLineEdit::paintEvent(event);
  } else {
    PaintCut(room);
  }
  if (accent_.isValid()) QPainter(this).fillRect(0, 0, StripeWidth, height(), accent_);
}

void TitlePath::PaintCut(const QRect& room) {
  QStyleOptionFrame panel;
  initStyleOption(&panel);
  QPainter painter(this);
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   EndThatFits(text(), fontMetrics(), room.width()));
}

}  // namespace tarnwell::ui
