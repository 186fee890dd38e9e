// Numbers and dates by what Qt knows of a locale (the Unicode CLDR).
#pragma once

#include <QLocale>
#include <QString>

#include "platform/NumberForms.h"

namespace tarnwell::ui {

class QtNumberForms : public platform::NumberForms {
 public:
  // The system locale has the user's choice for each category.
  explicit QtNumberForms(const QLocale& locale = QLocale::system());

  std::string Grouped(std::uint64_t number) const override;
  std::string Decimal(double number, int decimals) const override;
  std::string DateAndTime(const platform::LocalTime& time) const override;
  std::string DateAndMinute(const platform::LocalTime& time) const override;

 private:
  std::string ByPattern(const platform::LocalTime& time, const QString& timePattern) const;

  QLocale locale_;
  // As QLocale spells them; all empty for ISO 8601.
  QString datePattern_;
  QString timePattern_;
  QString minutePattern_;  // the time without its seconds
};

}  // namespace tarnwell::ui
