#include "ui/list/ListerStyle.h"

#include <algorithm>
#include <cmath>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/Palettes.h"

namespace tarnwell::ui {

namespace {

constexpr double ReadableContrast = 4.5;  // text is easy to read from here on
constexpr double VisibleContrast = 1.5;   // a patch of colour can be told from what it lies on

// Light as the eye weighs it, 0 to 1.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

// 1 for two equal colours, 21 for black on white.
double Contrast(const QColor& left, const QColor& right) {
  const auto [low, high] = std::minmax({Luminance(left), Luminance(right)});
  return (high + 0.05) / (low + 0.05);
}

// As much of the accent as the text on it bears.
QColor SelectionColour(const QColor& background, const QColor& accent, const QColor& text,
                       int percent) {
  constexpr int least = 10;
  while (percent > least && Contrast(Blend(background, accent, percent), text) < ReadableContrast) {
    percent -= 5;
  }
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
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, Blend(background, text, 50));
  }
  palette.setColor(QPalette::Highlight, selection);
  palette.setColor(QPalette::PlaceholderText, Blend(background, text, 60));
  return palette;
}

// The colour, moved towards the text as far as it takes to tell it from the background.
QColor Distinct(const QColor& colour, const QColor& text, const QColor& background,
                double contrast) {
  int percent = 0;
  while (percent < 100 && Contrast(Blend(colour, text, percent), background) < contrast) {
    percent += 10;
  }
  return Blend(colour, text, percent);
}

RowColours ColoursOn(const QColor& fill, const QColor& text, const QColor& secondary) {
  return {.Fill = fill,
          .Text = text,
          .Secondary = Contrast(fill, secondary) < ReadableContrast ? text : secondary};
}

// The colours of rows, from those of the list that the style has by now.
void AddRowColours(ListerStyle& style, const QColor& secondary) {
  const QColor background = style.List.color(QPalette::Base);
  const QColor text = style.List.color(QPalette::Text);
  const QColor selection = style.List.color(QPalette::Highlight);
  style.Plain = ColoursOn(background, text, secondary);
  style.Hovered = ColoursOn(Blend(background, selection, 25), text, secondary);
  style.Selected = ColoursOn(selection, style.List.color(QPalette::HighlightedText), secondary);
  style.Arrow = Distinct(style.ItemOutline, style.Selected.Text, selection, 3);
  const QColor status = style.Status.color(QPalette::Window);
  const QColor statusText = style.Status.color(QPalette::WindowText);
  style.LegendMore = Distinct(style.Arrow, statusText, status, 3);
  style.LegendLess = Distinct(style.Plain.Secondary, statusText, status, 3);
  for (std::size_t at = 0; at < style.Bars.size(); ++at) {
    const QColor colour = ToQColor(lister::ItemColours[at].Colour);
    style.Bars[at] = Distinct(colour, text, background, VisibleContrast);
    style.Tints[at] = SelectionColour(background, colour, text, 30);
  }
}

ListerStyle SystemStyle(bool active, const QPalette& system) {
  const QColor accent = system.color(QPalette::Highlight);
  ListerStyle style{.List = system,
                    .Drives = system,
                    .Toolbar = system,
                    .Menu = system,
                    .Status = system,
                    .ScrollBars = system,
                    .Pane = system.color(QPalette::Window),
                    .Outline = active ? accent : system.color(QPalette::Mid),
                    .Heading = system.color(QPalette::Button),
                    .HeadingText = system.color(QPalette::ButtonText),
                    .HeadingHover = system.color(QPalette::Link),
                    .ItemOutline = accent,
                    .ItemUnderline = accent,
                    .Arrow = {},
                    .LegendMore = {},
                    .LegendLess = {},
                    .Plain = {},
                    .Hovered = {},
                    .Selected = {},
                    .Bars = {},
                    .Tints = {}};
  AddRowColours(style, system.color(QPalette::PlaceholderText));
  return style;
}

}  // namespace

ListerStyle MakeListerStyle(const lister::ListColours& colours, bool active,
                            const QPalette& system) {
  if (colours.ListBackground == colours.ListText) return SystemStyle(active, system);
  const QColor background = ToQColor(colours.ListBackground);
  const QColor text = ToQColor(colours.ListText);
  const QColor accent = ToQColor(colours.ActiveItemOutline);
  const QColor drives = ToQColor(colours.DriveList);
  const QColor driveText = ToQColor(colours.DriveText);
  const QColor status = ToQColor(colours.StatusBackground);
  const QColor statusText = ToQColor(colours.StatusText);
  const QColor toolbar = ToQColor(colours.MinorToolbar);
  const QColor program = ToQColor(colours.ProgramBackground);
  const QColor raised = Blend(background, text, 7);
  ListerStyle style{
      .List =
          PaletteOf(background, text, SelectionColour(background, accent, text, active ? 45 : 20)),
      .Drives = PaletteOf(drives, driveText, SelectionColour(drives, accent, driveText, 45)),
      .Toolbar = PaletteOf(background, text, SelectionColour(background, accent, text, 45)),
      .Menu = PaletteOf(raised, text, SelectionColour(raised, accent, text, 45)),
      .Status = PaletteOf(status, statusText, status),
      .ScrollBars = PaletteOf(program, text, accent),
      .Pane = ToQColor(colours.PaneBackground),
      .Outline = ToQColor(active ? colours.ActiveListOutline : colours.InActiveListOutline),
      .Heading = ToQColor(active ? colours.ActiveHeading : colours.InactiveHeading),
      .HeadingText = ToQColor(active ? colours.ActiveHeadingText : colours.InactiveHeadingText),
      .HeadingHover = ToQColor(colours.HeadingHoverText),
      .ItemOutline = accent,
      .ItemUnderline = ToQColor(colours.ActiveItemUnderline),
      .Arrow = {},
      .LegendMore = {},
      .LegendLess = {},
      .Plain = {},
      .Hovered = {},
      .Selected = {},
      .Bars = {},
      .Tints = {}};
  style.Drives.setColor(QPalette::Button, drives);
  // The fields on the toolbar are as the list, all round them is the toolbar's.
  style.Toolbar.setColor(QPalette::Window, toolbar);
  style.Toolbar.setColor(QPalette::Button, toolbar);
  AddRowColours(style, ToQColor(colours.TextSecondary));
  return style;
}

}  // namespace tarnwell::ui
