#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "TempFolder.h"
#include "platform/linux/system/LinuxCollation.h"

namespace tarnwell::platform {
namespace {

std::string KeyOf(const LinuxCollation& order, const std::string& text) {
  std::string key;
  order.AppendWeights(text, key);
  EXPECT_TRUE(std::ranges::all_of(key, [](unsigned char byte) { return byte >= 2; })) << text;
  return key;
}

TEST(LinuxCollation, TakesBytesWhereThereAreNoRules) {
  for (const char* locale : {"C", "POSIX", "C.UTF-8", "no such locale"}) {
    const LinuxCollation order(locale);
    EXPECT_EQ(KeyOf(order, "b–é"), "b–é") << locale;
    EXPECT_EQ(KeyOf(order, "\1x"), "\2x") << locale;
  }
}

TEST(LinuxCollation, TakesTheLettersOfALanguage) {
  const TempFolder locales;
  // Made here from the system's sources: few are made where it is installed.
  for (const std::string language : {"en_US", "da_DK"}) {
    const std::string made = locales / language;
    ASSERT_EQ(std::system(("localedef --no-archive -f UTF-8 -i " + language + " " + made).c_str()),
              0);
  }
  setenv("LOCPATH", locales.Path().c_str(), 1);
  const LinuxCollation english("en_US"), danish("da_DK");
  unsetenv("LOCPATH");
  const char* const rising[] = {"",   " a", "-x", "_",  "1", "a", "a-b", "a–c", "ab", "äc", "ad",
                                "az", "b",  "éa", "eb", "œ", "p", "ßa",  "st",  "z",  "ж",  "한"};
  for (std::size_t at = 1; at < std::size(rising); ++at) {
    EXPECT_LT(KeyOf(english, rising[at - 1]), KeyOf(english, rising[at])) << rising[at];
  }
  EXPECT_EQ(KeyOf(english, "e\u0301te\u0301"), KeyOf(english, "été"));  // composed or not
  EXPECT_EQ(KeyOf(english, "été"), KeyOf(english, "ete"));
  const std::string longText(2000, 'x');
  EXPECT_EQ(KeyOf(english, longText + "é" + longText), KeyOf(english, longText + "e" + longText));
  EXPECT_EQ(KeyOf(danish, "aarhus"), KeyOf(danish, "århus"));
}

}  // namespace
}  // namespace tarnwell::platform
