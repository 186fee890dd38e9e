// From the measures, colours and texts of the core to Qt's.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <cstdint>
#include <string_view>

#include "base/Colour.h"
#include "base/Measure.h"
#include "base/Text.h"
#include "ui/toolkit/TranslateColour.h"

namespace tarnwell::ui {

// Far beyond any screen, and still safe to add to and to multiply by a scale.
inline constexpr int MostPixels = 1'000'000;

// The nearest logical pixel, within MostPixels either way.
constexpr int ToPixels(std::int64_t twips) {
  constexpr int half = base::TwipsPerPixel / 2;
  const std::int64_t pixels = (twips < 0 ? twips - half : twips + half) / base::TwipsPerPixel;
  return static_cast<int>(std::clamp<std::int64_t>(pixels, -MostPixels, MostPixels));
}

constexpr base::Twips ToTwips(int pixels) {
  return pixels * base::TwipsPerPixel;
}

// A system colour becomes the desktop's.
inline QColor ToQColor(base::Colour colour) {
  const base::Colour literal = TranslateColour(colour);
  return QColor(base::Red(literal), base::Green(literal), base::Blue(literal));
}

inline base::Colour ToColour(const QColor& colour) {
  return base::Rgb(colour.red(), colour.green(), colour.blue());
}

// Text of the program's own, or text that was made for showing already.
inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Text that may hold the bytes of a name: one line, with visible marks for control characters.
inline QString ToShownQString(std::string_view text) {
  return ToQString(base::ForDisplay(text));
}

// A message of several lines, each as above.
inline QString ToShownLines(std::string_view text) {
  QStringList lines =
      ToQString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).split('\n');
  for (QString& line : lines) line = ToShownQString(line.toStdString());
  return lines.join('\n');
}

// Text that may hold the bytes of a name, for a box where it is edited, and the way back.
inline QString ToEditedQString(std::string_view text) {
  const std::u16string edited = base::ForEditing(text);
  // As it is: the toolkit's own ways from UTF-16 look for marks of the byte order.
  const auto* const units = reinterpret_cast<const QChar*>(edited.data());
  return QString(units, static_cast<qsizetype>(edited.size()));
}
inline std::string FromEditedQString(const QString& text) {
  return base::FromEditing(text.toStdU16String());
}

// Text that may hold the bytes of a name, for the frame of a window. The toolkit takes one [*] for
// a sign that something is not saved yet.
inline QString ToWindowTitle(std::string_view text) {
  return ToShownQString(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

// A tool-tip that shows the text as it is, also where a name in it looks like HTML.
inline QString PlainToolTip(const QString& text) {
  if (!text.contains(QLatin1Char('<')) && !text.contains(QLatin1Char('&'))) return text;
  return QStringLiteral("<span>") +
         text.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")) +
         QStringLiteral("</span>");
}

}  // namespace tarnwell::ui
