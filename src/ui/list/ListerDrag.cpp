#include "ui/list/ListerDrag.h"

#include <QFontMetrics>
#include <QPainter>

namespace tarnwell::ui {

namespace {

constexpr int Side = 32;
constexpr int LabelMargin = 6;

}  // namespace

QPixmap DragPicture(const QIcon& icon, const QString& count, const QPalette& colours,
                    const QFont& font, double pixelRatio) {
  QFont bold = font;
  bold.setBold(true);
  const QFontMetrics metrics(bold);
  const int text = count.isEmpty() ? 0 : metrics.horizontalAdvance(count) + LabelMargin;
  const QSize size(Side + text + 2 * LabelMargin, Side + 2 * LabelMargin);
  QPixmap picture(size * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  // Without rounded corners: not every display can show what lies behind them.
  picture.fill(colours.color(QPalette::Base));
  QPainter painter(&picture);
  painter.setPen(colours.color(QPalette::Highlight));
  painter.drawRect(QRectF(QPointF(0.5, 0.5), QSizeF(size) - QSizeF(1, 1)));
  icon.paint(&painter, QRect(LabelMargin, LabelMargin, Side, Side));
  painter.setPen(colours.color(QPalette::Text));
  painter.setFont(bold);
  painter.drawText(QRect(2 * LabelMargin + Side, 0, text, size.height()), Qt::AlignVCenter, count);
  return picture;
}

QPixmap AskPointer(double pixelRatio) {
  constexpr int side = 56;
  QPixmap picture(QSize(side, side) * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(side / 2.0, side / 2.0);
  const QPointF arrow[] = {{0, 0}, {0, 15}, {3.5, 12}, {6, 17.5}, {8.5, 16.5}, {6, 11}, {10.5, 11}};
  painter.setPen(QPen(Qt::white, 1));
  painter.setBrush(Qt::black);
  painter.drawPolygon(arrow, std::size(arrow));
  const QRectF badge(10, 13, 13, 13);
  painter.setPen(QPen(Qt::black, 1));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(badge, 2, 2);
  QFont font;
  font.setPixelSize(11);
  font.setBold(true);
  painter.setFont(font);
  painter.drawText(badge, Qt::AlignCenter, QStringLiteral("?"));
  return picture;
}

}  // namespace tarnwell::ui
