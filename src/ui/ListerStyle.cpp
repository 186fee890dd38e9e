#include "ui/ListerStyle.h"

#include <algorithm>
#include <cmath>

#include "ui/Convert.h"

namespace tarnwell::ui {

namespace {

// `percent` of `over` laid upon the rest of `under`.
QColor Blend(const QColor& under, const QColor& over, int percent) {
  const auto mix = [percent](int low, int high) {
    return (low * (100 - percent) + high * percent) / 100;
  };
  return QColor(mix(under.red(), over.red()), mix(under.green(), over.green()),
                mix(under.blue(), over.blue()));
}

// Light as the eye weighs it, 0 to 1.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

// 1 for two equal colours, 21 for black on white; text is easy to read from 4.5 on.
double Contrast(const QColor& left, const QColor& right) {
  const auto [low, high] = std::minmax({Luminance(left), Luminance(right)});
  return (high + 0.05) / (low + 0.05);
}

// As much of the accent as the text on it bears.
QColor SelectionColour(const QColor& background, const QColor& accent, const QColor& text,
                       int percent) {
  constexpr int least = 10;
  while (percent > least && Contrast(Blend(background, accent, percent), text) < 4.5) percent -= 5;
  return Blend(background, accent, percent);
}

// Every role from two colours, so that scroll bars, arrows and branch marks go with them.
QPalette PaletteOf(const QColor& background, const QColor& text, const QColor& selection) {
  QPalette palette(Blend(background, text, 8), background);
  for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::Window}) {
    palette.setColor(role, background);
  }
  for (const auto role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::HighlightedText}) {
    palette.setColor(role, text);
  }
  palette.setColor(QPalette::Highlight, selection);
  palette.setColor(QPalette::PlaceholderText, Blend(background, text, 60));
  return palette;
}

ListerStyle SystemStyle(bool active, const QPalette& system) {
  const QColor accent = system.color(QPalette::Highlight);
  return {.List = system,
          .Drives = system,
          .Status = system,
          .Outline = active ? accent : system.color(QPalette::Mid),
          .Heading = system.color(QPalette::Button),
          .HeadingText = system.color(QPalette::ButtonText),
          .HeadingHover = system.color(QPalette::Link),
          .ItemOutline = accent,
          .ItemUnderline = accent,
          .Secondary = system.color(QPalette::PlaceholderText)};
}

}  // namespace

ListerStyle MakeListerStyle(const lister::ListerColours& colours, bool active,
                            const QPalette& system) {
  if (colours.ListBackground == colours.ListText) return SystemStyle(active, system);
  const QColor background = ToQColor(colours.ListBackground);
  const QColor text = ToQColor(colours.ListText);
  const QColor accent = ToQColor(colours.ActiveItemOutline);
  const QColor drives = ToQColor(colours.DriveList);
  const QColor driveText = ToQColor(colours.DriveText);
  const QColor status = ToQColor(colours.StatusBackground);
  const QColor statusText = ToQColor(colours.StatusText);
  ListerStyle style{
      .List =
          PaletteOf(background, text, SelectionColour(background, accent, text, active ? 45 : 20)),
      .Drives = PaletteOf(drives, driveText, SelectionColour(drives, accent, driveText, 45)),
      .Status = PaletteOf(status, statusText, status),
      .Outline = ToQColor(active ? colours.ActiveListOutline : colours.InActiveListOutline),
      .Heading = ToQColor(active ? colours.ActiveHeading : colours.InactiveHeading),
      .HeadingText = ToQColor(active ? colours.ActiveHeadingText : colours.InactiveHeadingText),
      .HeadingHover = ToQColor(colours.HeadingHoverText),
      .ItemOutline = accent,
      .ItemUnderline = ToQColor(colours.ActiveItemUnderline),
      .Secondary = ToQColor(colours.TextSecondary)};
  style.Drives.setColor(QPalette::Button, drives);
  return style;
}

}  // namespace tarnwell::ui
