#include "ui/toolkit/SkinStyle.h"

#include <QPainter>
#include <QStyleOption>

#include "ui/toolkit/Contrast.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

constexpr int PressedDarker = 115;  // per cent, a little more than the toolkit's

void PaintFrame(QPainter& painter, const QRect& place, const QColor& colour, double rounding) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(colour);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), rounding, rounding);
  painter.restore();
}

QColor EdgeOf(const QStyleOption& option) {
  return EdgeColour(option.palette, option.state.testFlag(QStyle::State_Enabled));
}

void PaintFocus(QPainter& painter, const QStyleOption& option, const QRect& place) {
  if (!option.state.testFlag(QStyle::State_KeyboardFocusChange)) return;
  const auto* const focus = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
  const bool told = focus != nullptr && focus->backgroundColor.isValid();
  const QColor back = told ? focus->backgroundColor : option.palette.color(QPalette::Button);
  // A button that is pressed is darker.
  const bool pressed = (option.state & (QStyle::State_On | QStyle::State_Sunken)) != 0;
  PaintFrame(painter, place,
             Distinct(option.palette.color(QPalette::Highlight),
                      {back, pressed ? back.darker(PressedDarker) : back}, MarkContrast),
             2);
}

}  // namespace

void SkinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  if (element == PE_FrameFocusRect) return PaintFocus(*painter, *option, option->rect);
  if (element == PE_PanelMenu) {
    painter->fillRect(option->rect, option->palette.base());
    return PaintFrame(*painter, option->rect, EdgeOf(*option), 0);
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  switch (element) {
    case PE_FrameLineEdit:
      if (!option->state.testFlag(State_HasFocus)) {
        PaintFrame(*painter, option->rect, EdgeOf(*option), 2);
      }
      break;
    case PE_PanelButtonCommand:
      // Which the style tells no more from the default button.
      if (option->state.testFlag(State_HasFocus)) {
        PaintFocus(*painter, *option, option->rect.adjusted(3, 3, -3, -3));
      }
      break;
    case PE_IndicatorCheckBox:
      PaintFrame(*painter, option->rect, EdgeOf(*option), 0);
      break;
    case PE_IndicatorRadioButton:
      PaintFrame(*painter, option->rect, EdgeOf(*option), option->rect.width() / 2.0);
      break;
    default:
      break;
  }
}

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  const bool isField = control == CC_ComboBox && box != nullptr && box->editable && box->frame;
  if (isField && !option->state.testFlag(State_HasFocus)) {
    PaintFrame(*painter, option->rect, EdgeOf(*option), 2);
  }
}

}  // namespace tarnwell::ui
