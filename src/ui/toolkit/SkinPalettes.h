// Palettes of the toolkit from the few colours that a skin or a form has: the one place where the
// colours that a skin does not name are derived, but for those of a list's rows
// (ui/list/ListerStyle).
#pragma once

#include <QPalette>
#include <QWidget>
#include <optional>

#include "forms/Controls.h"

namespace tarnwell::ui {

struct PaletteColours {
  QColor Window;  // of windows and bars
  QColor WindowText;
  QColor Base;  // of fields, lists and menus
  QColor Text;
  QColor Accent;  // of what is selected; moved as far as it takes to be seen

  bool operator==(const PaletteColours&) const = default;
};

// The same background and text everywhere.
PaletteColours PlainColours(const QColor& back, const QColor& text, const QColor& accent);

PaletteColours ColoursOf(const QPalette& palette);

// Every role of the toolkit, so that nothing is left to what widgets would inherit. The first four
// colours are taken as they are. Of the rest texts have ReadableContrast to what they stand on,
// greyed ones MarkContrast, as have the frame and the patch that tell where the keyboard is.
QPalette MakePalette(const PaletteColours& colours);

// Of all windows that have no colours of their own, from the skin's. The texts are moved as far as
// it takes to read them.
PaletteColours ProgramColours(const QColor& window, const QColor& list, const QColor& listText,
                              const QColor& accent);

// Of the menus that go with them, told from the lists below by a shade.
PaletteColours MenuColours(const PaletteColours& program);

// Of a control of the main form: with both colours, or with a background alone. None without a
// skin, since theirs do not hold then.
std::optional<PaletteColours> BoxColours(const forms::TextBox& box,
                                         const std::optional<PaletteColours>& program);
std::optional<PaletteColours> BarColours(base::Colour back,
                                         const std::optional<PaletteColours>& program);

// Of the windows that look the same in every skin: black on white fields, light buttons, and what
// can be read on `window`.
QPalette FixedLightPalette(const QColor& window = Qt::white);

// Round a field or a box: told from what lies inside and outside, unless nothing can be done there.
QColor EdgeColour(const QPalette& palette, bool enabled);
// Of lines that part areas: to be seen, and not to be noticed.
QColor LineColour(const QPalette& palette);

// What the desktop gave at the start. A window that is given it keeps it in every skin.
const QPalette& DesktopPalette();

// The colours of whatever has none of its own: windows, menus, tool-tips. A palette is made only
// when they change.
class ApplicationColours {
 public:
  // Without any, those of the desktop.
  void Show(const std::optional<PaletteColours>& colours);

 private:
  std::optional<PaletteColours> shown_;
};

// The colours of one widget, likewise.
class WidgetColours {
 public:
  // Without any the widget has those of what it lies on.
  void Show(QWidget& widget, const std::optional<PaletteColours>& colours);

 private:
  std::optional<PaletteColours> shown_;
};

}  // namespace tarnwell::ui
