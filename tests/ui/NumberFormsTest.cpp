#include "Test.h"
#include "ui/services/QtNumberForms.h"

namespace tarnwell::ui {
namespace {

TEST(NumberForms, AreThoseOfTheLanguage) {
  // Locales of Qt, whatever the machine has.
  const struct {
    const char* Locale;
    const char* Texts;
  } all[] = {
      {"C", "2,158,850|2.8|2001-02-08 13:05:09|2001-02-08 13:05"},
      {"en_US", "2,158,850|2.8|02/08/2001 01:05:09 PM|02/08/2001 01:05 PM"},
      {"de_DE", "2.158.850|2,8|08.02.2001 13:05:09|08.02.2001 13:05"},
      {"fi_FI", "2\u00a0158\u00a0850|2,8|08.02.2001 13.05.09|08.02.2001 13.05"},
      {"hi_IN", "21,58,850|2.8|08/02/2001 01:05:09 PM|08/02/2001 01:05 PM"},
      {"fr_CA", "2\u00a0158\u00a0850|2,8|2001-02-08 13 h 05:09|2001-02-08 13 h 05"},
      {"bg_BG", "2158\u00a0850|2,8|08.02.2001 г. 13:05:09 ч.|08.02.2001 г. 13:05 ч."},
      {"ar_EG", "٢٬١٥٨٬٨٥٠|٢٫٨|٠٨\u200f/٠٢\u200f/٢٠٠١ ٠١:٠٥:٠٩ م|٠٨\u200f/٠٢\u200f/٢٠٠١ ٠١:٠٥ م"},
  };
  for (const auto& [locale, texts] : all) {
    const QtNumberForms forms{QLocale(QString::fromLatin1(locale))};
    EXPECT_EQ(forms.Grouped(2158850) + "|" + forms.Decimal(2.8125, 1) + "|" +
                  forms.DateAndTime({2001, 2, 8, 13, 5, 9}) + "|" +
                  forms.DateAndMinute({2001, 2, 8, 13, 5, 9}),
              texts)
        << locale;
  }
}

}  // namespace
}  // namespace tarnwell::ui
