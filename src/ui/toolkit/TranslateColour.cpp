#include "ui/toolkit/TranslateColour.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

// By the number of the system colour, from COLOR_SCROLLBAR to COLOR_INFOBK.
constexpr std::array SystemRoles = {
    QPalette::Mid,         QPalette::Dark,       QPalette::Highlight,
    QPalette::Mid,         QPalette::Window,     QPalette::Base,
    QPalette::Shadow,      QPalette::WindowText, QPalette::Text,
    QPalette::BrightText,  QPalette::Button,     QPalette::Button,
    QPalette::Dark,        QPalette::Highlight,  QPalette::HighlightedText,
    QPalette::Button,      QPalette::Dark,       QPalette::PlaceholderText,
    QPalette::ButtonText,  QPalette::WindowText, QPalette::Light,
    QPalette::Shadow,      QPalette::Midlight,   QPalette::ToolTipText,
    QPalette::ToolTipBase,
};

constexpr std::uint32_t SystemMark = 0x80000000;

}  // namespace

base::Colour TranslateColour(base::Colour colour) {
  const auto value = static_cast<std::uint32_t>(colour);
  const std::size_t number = value & ~SystemMark;
  if ((value & SystemMark) == 0 || number >= SystemRoles.size()) return colour & 0xFFFFFF;
  const QColor own = DesktopPalette().color(SystemRoles[number]);
  return base::Rgb(own.red(), own.green(), own.blue());
}

}  // namespace tarnwell::ui
