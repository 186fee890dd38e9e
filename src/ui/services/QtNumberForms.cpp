#include "ui/services/QtNumberForms.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

#include "lister/rows/CellText.h"

namespace tarnwell::ui {
namespace {

// Days, months and hours with two digits throughout, so that what stands in a column lines up.
// Words in a pattern stand between quotes.
void PadNumbers(QString& pattern) {
  static const QRegularExpression single(QStringLiteral("(?<![\\w'])([dMhH])(?![\\w'])"));
  pattern.replace(single, QStringLiteral("\\1\\1"));
}

// The short form, in figures alone, with the whole year.
QString DatePattern(const QLocale& locale) {
  QString pattern = locale.dateFormat(QLocale::ShortFormat);
  PadNumbers(pattern);
  static const QRegularExpression shortYear(QStringLiteral("(?<!y)yy(?!y)"));
  return pattern.replace(shortYear, QStringLiteral("yyyy"));
}

// The short form, which has seconds in some languages.
QString MinutePattern(const QLocale& locale) {
  QString pattern = locale.timeFormat(QLocale::ShortFormat);
  PadNumbers(pattern);
  static const QRegularExpression seconds(QStringLiteral("[.:]ss?(?!\\w)"));
  return pattern.remove(seconds);
}

QString TimePattern(const QLocale& locale) {
  QString pattern = MinutePattern(locale);
  const QString minute = QStringLiteral("mm");
  const qsizetype at = pattern.indexOf(minute);
  if (at < 0) return pattern;
  const bool hasPoint = at > 0 && pattern[at - 1] == QLatin1Char('.');
  return pattern.insert(at + minute.size(),
                        hasPoint ? QStringLiteral(".ss") : QStringLiteral(":ss"));
}

}  // namespace

QtNumberForms::QtNumberForms(const QLocale& locale) : locale_(locale) {
  locale_.setNumberOptions(QLocale::DefaultNumberOptions);  // "C" would leave the groups out
  const QString noChoice = QLocale::c().dateFormat(QLocale::ShortFormat);
  if (locale.dateFormat(QLocale::ShortFormat) == noChoice) return;
  datePattern_ = DatePattern(locale);
  timePattern_ = TimePattern(locale);
  minutePattern_ = MinutePattern(locale);
}

std::string QtNumberForms::Grouped(std::uint64_t number) const {
  return locale_.toString(qulonglong{number}).toStdString();
}

std::string QtNumberForms::Decimal(double number, int decimals) const {
  return locale_.toString(number, 'f', decimals).toStdString();
}

std::string QtNumberForms::DateAndTime(const platform::LocalTime& time) const {
  return datePattern_.isEmpty() ? lister::IsoText(time) : ByPattern(time, timePattern_);
}

std::string QtNumberForms::DateAndMinute(const platform::LocalTime& time) const {
  constexpr std::size_t seconds = 3;
  if (!datePattern_.isEmpty()) return ByPattern(time, minutePattern_);
  const std::string text = lister::IsoText(time);
  return text.substr(0, text.size() - seconds);
}

std::string QtNumberForms::ByPattern(const platform::LocalTime& time,
                                     const QString& timePattern) const {
  const QDate date(time.Year, time.Month, time.Day);
  const QTime ofDay(time.Hour, time.Minute, time.Second);
  return (locale_.toString(date, datePattern_) + QLatin1Char(' ') +
          locale_.toString(ofDay, timePattern))
      .toStdString();
}

}  // namespace tarnwell::ui
