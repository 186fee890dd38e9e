// The toolkit's Fusion style, with edges and focus frames that can be seen in every skin: it makes
// them by darkening, which leaves nothing of them on dark windows, and paints the frame of what has
// the keyboard half transparent.
#pragma once

#include <QProxyStyle>

namespace tarnwell::ui {

class SkinStyle : public QProxyStyle {
 public:
  SkinStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
};

}  // namespace tarnwell::ui
