#include "ui/list/ListerStyle.h"

#include "ui/toolkit/Contrast.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {

namespace {

// As much of the accent as the text on it bears.
QColor TintOf(const QColor& background, const QColor& accent, const QColor& text, int percent,
              int least) {
  while (percent > least && Contrast(Blend(background, accent, percent), text) < ReadableContrast) {
    percent -= 5;
  }
  return Blend(background, accent, percent);
}

// The colours of rows, from those of the list that the style has by now. Text and background are
// shown as the user chose them; what lies between is readable at any rate.
void AddRowColours(ListerStyle& style, const QColor& secondary, int selectionPercent) {
  const QColor background = style.List.color(QPalette::Base);
  const QColor text = style.List.color(QPalette::Text);
  const auto readable = [&](const QColor& fill) {
    return RowColours{.Fill = fill,
                      .Text = Distinct(text, {fill}, ReadableContrast),
                      .Secondary = Distinct(secondary, {fill}, ReadableContrast)};
  };
  const QColor selection = TintOf(background, style.ItemOutline, text, selectionPercent, 10);
  style.Plain = {.Fill = background, .Text = text, .Secondary = secondary};
  style.Hovered = readable(Blend(background, selection, 25));
  style.Selected = readable(selection);
  style.Arrow = Distinct(style.ItemOutline, {selection, background}, MarkContrast);
  const QColor status = style.Status.color(QPalette::Window);
  style.LegendMore = Distinct(style.Arrow, {status}, MarkContrast);
  style.LegendLess = Distinct(secondary, {status}, MarkContrast);
  for (std::size_t at = 0; at < style.Bars.size(); ++at) {
    const QColor colour = ToQColor(lister::ItemColours[at].Colour);
    style.Bars[at] = Distinct(colour, {background}, PatchContrast);
    style.Tints[at] = TintOf(background, colour, text, 30, 0);
  }
}

ListerStyle SystemStyle(bool active, const QPalette& system) {
  const QColor accent = system.color(QPalette::Highlight);
  ListerStyle style{.List = system,
                    .Drives = system,
                    .Toolbar = system,
                    .Status = system,
                    .ScrollBars = system,
                    .Pane = system.color(QPalette::Window),
                    .Outline = active ? accent : system.color(QPalette::Mid),
                    .Heading = system.color(QPalette::Button),
                    .HeadingText = system.color(QPalette::ButtonText),
                    .HeadingHover = system.color(QPalette::Link),
                    .ItemOutline = accent,
                    .ItemUnderline = accent};
  const QColor base = system.color(QPalette::Base);
  const QColor faint = Blend(base, system.color(QPalette::Text), 60);
  AddRowColours(style, Distinct(faint, {base}, ReadableContrast), active ? 45 : 20);
  return style;
}

}  // namespace

ListerStyle MakeListerStyle(const lister::ListColours& colours, bool active,
                            const QPalette& system) {
  if (colours == lister::ListColours{}) return SystemStyle(active, system);
  const QColor background = ToQColor(colours.ListBackground);
  const QColor text = ToQColor(colours.ListText);
  const QColor accent = ToQColor(colours.ActiveItemOutline);
  const auto plain = [&accent](base::Colour back, base::Colour fore) {
    return MakePalette(PlainColours(ToQColor(back), ToQColor(fore), accent));
  };
  const QColor toolbar = ToQColor(colours.MinorToolbar);
  ListerStyle style{
      .List = plain(colours.ListBackground, colours.ListText),
      .Drives = plain(colours.DriveList, colours.DriveText),
      // The fields on the toolbar are as the list, all round them is the toolbar's.
      .Toolbar = MakePalette({.Window = toolbar,
                              .WindowText = Distinct(text, {toolbar}, ReadableContrast),
                              .Base = background,
                              .Text = text,
                              .Accent = accent}),
      .Status = plain(colours.StatusBackground, colours.StatusText),
      .ScrollBars = plain(colours.ProgramBackground, colours.ListText),
      .Pane = ToQColor(colours.PaneBackground),
      .Outline = ToQColor(active ? colours.ActiveListOutline : colours.InActiveListOutline),
      .Heading = ToQColor(active ? colours.ActiveHeading : colours.InactiveHeading),
      .HeadingText = ToQColor(active ? colours.ActiveHeadingText : colours.InactiveHeadingText),
      .HeadingHover = ToQColor(colours.HeadingHoverText),
      .ItemOutline = accent,
      .ItemUnderline = ToQColor(colours.ActiveItemUnderline)};
  AddRowColours(style, ToQColor(colours.TextSecondary), active ? 45 : 20);
  return style;
}

}  // namespace tarnwell::ui
