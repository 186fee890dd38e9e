// Colours and palettes made from those of a skin.
#pragma once

#include <QColor>
#include <QPalette>

namespace tarnwell::ui {

// `percent` of `over` laid upon the rest of `under`.
inline QColor Blend(const QColor& under, const QColor& over, int percent) {
  const auto mix = [percent](int low, int high) {
    return (low * (100 - percent) + high * percent) / 100;
  };
  return QColor(mix(under.red(), over.red()), mix(under.green(), over.green()),
                mix(under.blue(), over.blue()));
}

// Black or white, whichever can be read on the colour.
inline QColor TextOn(const QColor& back) {
  return qGray(back.rgb()) > 127 ? Qt::black : Qt::white;
}

// A palette around the two colours.
inline QPalette PlainPalette(const QColor& back, const QColor& text) {
  QPalette palette(Blend(back, text, 8), back);
  palette.setColor(QPalette::Base, back);
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, Blend(back, text, 50));
  }
  return palette;
}

}  // namespace tarnwell::ui
