#include "ui/ListerDrag.h"

#include <QFontMetrics>
#include <QPainter>

namespace tarnwell::ui {

namespace {

constexpr int Side = 32;
constexpr int Margin = 6;

}  // namespace

QPixmap DragPicture(const QIcon& icon, std::size_t count, const QPalette& colours,
                    const QFont& font, double pixelRatio) {
  QFont bold = font;
  bold.setBold(true);
  const QFontMetrics metrics(bold);
  const QString number = count > 1 ? QString::number(count) : QString();
  const int text = number.isEmpty() ? 0 : metrics.horizontalAdvance(number) + Margin;
  const QSize size(Side + text + 2 * Margin, Side + 2 * Margin);
  QPixmap picture(size * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  // Without rounded corners: not every display can show what lies behind them.
  picture.fill(colours.color(QPalette::Base));
  QPainter painter(&picture);
  painter.setPen(colours.color(QPalette::Highlight));
  painter.drawRect(QRectF(QPointF(0.5, 0.5), QSizeF(size) - QSizeF(1, 1)));
  icon.paint(&painter, QRect(Margin, Margin, Side, Side));
  painter.setPen(colours.color(QPalette::Text));
  painter.setFont(bold);
  painter.drawText(QRect(2 * Margin + Side, 0, text, size.height()), Qt::AlignVCenter, number);
  return picture;
}

}  // namespace tarnwell::ui
