#include "ui/toolkit/SkinPalettes.h"

#include <QApplication>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "ui/toolkit/Contrast.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

// Of the windows with fixed colours.
const QColor FixedAccent(0, 100, 180);

using RoleColour = std::pair<QPalette::ColorRole, QColor>;

struct ButtonLook {
  QColor Back;
  QColor Text;
  QColor Raised;  // the lightest shade that the text stands on
};

// Fusion paints buttons, and pages below tabs, in shades about their colour: lighter on the whole,
// with a gradient, lighter below the mouse and darker when down. The text is to be read on all, and
// greyed to be told.
ButtonLook ButtonOn(const QColor& window, const QColor& windowText) {
  const QColor text = Distinct(windowText, {window}, ReadableContrast);
  const bool dark = Contrast(window, Qt::black) < Contrast(text, Qt::black);
  const QColor plain = Blend(window, text, dark ? 8 : 6);
  for (int percent = 0; percent <= 100; percent += 5) {
    const QColor back = Blend(plain, dark ? Qt::black : Qt::white, percent);
    const QColor raised = back.lighter(100 + std::max(1, (180 - qGray(back.rgb())) / 6));
    const QColor lightest = raised.lighter(118);
    if (std::min(Contrast(text, lightest), Contrast(text, back.darker(112))) >= ReadableContrast) {
      return {back, text, lightest};
    }
  }
  return {Qt::white, Qt::black, Qt::white};  // a text that was just readable on white
}

// What Fusion makes of the colour of the selection to frame what has the keyboard.
QColor FocusFrame(const QColor& highlight) {
  QColor frame = highlight.darker(125);
  if (frame.value() > 160) frame.setHsl(frame.hue(), frame.saturation(), 160);
  return frame;
}

// The accent, on its way to black or white: as a patch, with text in the colour of fields on it,
// and as the frame that the style makes of it.
QColor HighlightOn(const PaletteColours& colours) {
  QColor best = colours.Accent;
  double most = 0;
  const auto consider = [&](const QColor& tried) {
    const QColor frame = FocusFrame(tried);
    const double reached = std::min({Contrast(tried, colours.Base) / ReadableContrast,
                                     Contrast(tried, colours.Window) / MarkContrast,
                                     Contrast(frame, colours.Base) / MarkContrast,
                                     Contrast(frame, colours.Window) / MarkContrast});
    if (reached > most) {
      most = reached;
      best = tried;
    }
    return most >= 1;
  };
  for (int percent = 0; percent <= 100; percent += 5) {
    if (consider(Blend(colours.Accent, Qt::black, percent)) ||
        consider(Blend(colours.Accent, Qt::white, percent))) {
      break;
    }
  }
  return best;
}

// On `raised` as well.
QColor Greyed(const QColor& back, const QColor& raised, const QColor& text) {
  return Distinct(Blend(back, text, 45), {back, raised}, MarkContrast);
}

// Every role set, also those that have the value that widgets would inherit.
QPalette Whole(const QPalette& palette) {
  QPalette whole = palette;
  for (const auto group : {QPalette::Active, QPalette::Disabled, QPalette::Inactive}) {
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
      const auto each = static_cast<QPalette::ColorRole>(role);
      whole.setBrush(group, each, palette.brush(group, each));
    }
  }
  return whole;
}

}  // namespace

PaletteColours PlainColours(const QColor& back, const QColor& text, const QColor& accent) {
  return {.Window = back, .WindowText = text, .Base = back, .Text = text, .Accent = accent};
}

PaletteColours ColoursOf(const QPalette& palette) {
  return {.Window = palette.color(QPalette::Window),
          .WindowText = palette.color(QPalette::WindowText),
          .Base = palette.color(QPalette::Base),
          .Text = palette.color(QPalette::Text),
          .Accent = palette.color(QPalette::Highlight)};
}

QPalette MakePalette(const PaletteColours& colours) {
  const QColor& window = colours.Window;
  const QColor& base = colours.Base;
  const ButtonLook button = ButtonOn(window, colours.WindowText);
  const QColor highlight = HighlightOn(colours);
  const QColor tip = Blend(base, colours.Text, 7);
  const QColor link = Distinct(colours.Accent, {window}, ReadableContrast);
  const QColor faded = Blend(window, colours.WindowText, 20);
  const bool dark = TextOn(window) == Qt::white;
  const RoleColour roles[] = {
    {QPalette::Window, window},
    {QPalette::WindowText, colours.WindowText},
    {QPalette::Base, base},
    {QPalette::AlternateBase, base},
    {QPalette::Text, colours.Text},
    {QPalette::PlaceholderText, Distinct(Blend(base, colours.Text, 60), {base}, ReadableContrast)},
    {QPalette::Button, button.Back},
    {QPalette::ButtonText, button.Text},
    {QPalette::BrightText, Distinct(colours.WindowText, {window}, ReadableContrast)},
    {QPalette::Highlight, highlight},
    {QPalette::HighlightedText, Distinct(base, {highlight}, ReadableContrast)},
    {QPalette::Link, link},
    {QPalette::LinkVisited,
     Distinct(Blend(link, colours.WindowText, 40), {window}, ReadableContrast)},
    {QPalette::ToolTipBase, tip},
    {QPalette::ToolTipText, Distinct(colours.Text, {tip}, ReadableContrast)},
    {QPalette::Light, Blend(window, Qt::white, dark ? 18 : 70)},
    {QPalette::Midlight, Blend(window, Qt::white, dark ? 10 : 35)},
    {QPalette::Mid, Blend(window, Qt::black, 28)},
    {QPalette::Dark, Blend(window, Qt::black, 42)},
    {QPalette::Shadow, Blend(window, Qt::black, 70)},
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    {QPalette::Accent, highlight},
#endif
  };
  const QColor greyed = Greyed(window, button.Raised, colours.WindowText);
  const RoleColour disabled[] = {
      {QPalette::WindowText, greyed},
      {QPalette::Base, window},
      {QPalette::Text, greyed},
      {QPalette::PlaceholderText, greyed},
      {QPalette::ButtonText, Greyed(button.Back, button.Raised, button.Text)},
      {QPalette::Light, window},  // the style lays it below greyed texts
      {QPalette::Highlight, faded},
      {QPalette::HighlightedText, Greyed(faded, faded, colours.WindowText)},
  };
  QPalette palette;
  for (const auto& [role, colour] : roles) palette.setColor(role, colour);
  for (const auto& [role, colour] : disabled) palette.setColor(QPalette::Disabled, role, colour);
  return palette;
}

PaletteColours ProgramColours(const QColor& window, const QColor& list, const QColor& listText,
                              const QColor& accent) {
  return {.Window = window,
          .WindowText = Distinct(listText, {window}, ReadableContrast),
          .Base = list,
          .Text = Distinct(listText, {list}, ReadableContrast),
          .Accent = accent};
}

PaletteColours MenuColours(const PaletteColours& program) {
  const QColor raised = Blend(program.Base, program.Text, 7);
  return PlainColours(raised, Distinct(program.Text, {raised}, ReadableContrast), program.Accent);
}

std::optional<PaletteColours> BoxColours(const forms::TextBox& box,
                                         const std::optional<PaletteColours>& program) {
  if (!program) return std::nullopt;
  return PlainColours(ToQColor(box.BackColour), ToQColor(box.ForeColour), program->Accent);
}

std::optional<PaletteColours> BarColours(base::Colour back,
                                         const std::optional<PaletteColours>& program) {
  if (!program) return std::nullopt;
  const QColor fill = ToQColor(back);
  return PlainColours(fill, Distinct(program->Text, {fill}, ReadableContrast), program->Accent);
}

QPalette FixedLightPalette(const QColor& window) {
  QPalette palette = MakePalette(PlainColours(Qt::white, Qt::black, FixedAccent));
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::WindowText, TextOn(window));
  palette.setColor(QPalette::Disabled, QPalette::WindowText,
                   Greyed(window, window, TextOn(window)));
  return palette;
}

QColor EdgeColour(const QPalette& palette, bool enabled) {
  const QColor window = palette.color(QPalette::Window);
  const QColor faint = Blend(window, palette.color(QPalette::WindowText), 30);
  if (!enabled) return faint;
  return Distinct(faint, {window, palette.color(QPalette::Base)}, MarkContrast);
}

QColor LineColour(const QPalette& palette) {
  return Blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 22);
}

const QPalette& DesktopPalette() {
  static const QPalette desktop = Whole(QApplication::palette());
  return desktop;
}

void ApplicationColours::Show(const std::optional<PaletteColours>& colours) {
  if (shown_ == colours) return;
  shown_ = colours;
  DesktopPalette();  // notes it, now at the latest
  // An empty palette brings the desktop's back.
  QApplication::setPalette(colours ? MakePalette(*colours) : QPalette());
  if (colours) QApplication::setPalette(MakePalette(MenuColours(*colours)), "QMenu");
  // Widgets hear of it by events, which are to come before the painting that is due by then.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
  QToolTip::setPalette(QApplication::palette());
}

void WidgetColours::Show(QWidget& widget, const std::optional<PaletteColours>& colours) {
  if (shown_ == colours) return;
  shown_ = colours;
  widget.setPalette(colours ? MakePalette(*colours) : QPalette());
}

}  // namespace tarnwell::ui
