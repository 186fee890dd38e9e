#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "lister/NameFilter.h"

namespace tarnwell::lister {
namespace {

TEST(NameFilter, TakesByPatterns) {
  const std::string hard = std::string(255, 'a');
  const struct {
    std::string Text, Name;
    bool Takes;
  } cases[] = {
      {"", "any", true},
      {" ; ", "any", true},
      {" PORT ", "report.txt", true},
      {"port", "rep.ort", false},
      {"a b", "xa by", true},
      {"*.txt", "A.TXT", true},
      {"*.txt", "a.txt.gz", false},
      {"r*t", "report", true},
      {"r*t", "report.txt2", false},
      {"*a*b*", "xaxbx", true},
      {"*a*b*", "xbxax", false},
      {"**", "", true},
      {"?", "\xC3\xA4", true},   // one letter of two bytes
      {"??", "\xFF\xC3", true},  // bytes that are no UTF-8
      {"??", "\xC3\xA4", false},
      {"*?\xC3\xA4", "\xC3\xA4\xC3\xA4", true},
      {"?*", "", false},
      {"n#", "n5", true},
      {"n#", "nx", false},
      {"n#", "n55", false},
      {"#*.jp?g", "1.jpeg", true},
      {"a*ab", "aaab", true},
      {"*.c; *.h ;readme", "x.H", true},
      {"*.c; *.h ;readme", "old README 2", true},
      {"*.c; *.h ;readme", "x.hh", false},
      {"[a-z]", "b", false},
      {"*a*a*a*a*a*a*a*a*a*a*a*b", hard, false},
      {"*a*a*a*a*a*a*a*a*a*a*a*", hard, true},
  };
  for (const auto& one : cases) {
    NameFilter filter;
    filter.SetText(one.Text);
    EXPECT_EQ(filter.Takes(one.Name, false), one.Takes) << one.Text << " " << one.Name;
    EXPECT_EQ(filter.Takes(one.Name, true), one.Takes);
  }
}

TEST(NameFilter, TakesFilesByExtensionBesides) {
  NameFilter filter;
  EXPECT_FALSE(filter.IsOn());
  filter.SetExtension("txt");
  filter.SetText("a*");
  EXPECT_TRUE(filter.Takes("a.TXT", false));
  EXPECT_FALSE(filter.Takes("b.txt", false));
  EXPECT_FALSE(filter.Takes("a.pdf", false));
  EXPECT_TRUE(filter.Takes("a.pdf", true));
}

TEST(NameFilter, IgnoresCaseBeyondAscii) {
  const std::string before = std::setlocale(LC_CTYPE, nullptr);
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  NameFilter filter;
  filter.SetText("\xC3\x84R");  // an A with two dots
  EXPECT_TRUE(filter.Takes("B\xC3\xA4r \xFF", false));
  EXPECT_EQ(LowerCase("\xC3\x84\xFFX"), "\xC3\xA4\xFFx");
  std::setlocale(LC_CTYPE, before.c_str());
}

}  // namespace
}  // namespace tarnwell::lister
