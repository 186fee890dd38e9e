#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lister/rows/NameFilter.h"

namespace tarnwell::lister {
namespace {

TEST(NameFilter, TakesByPatterns) {
  using Names = std::vector<std::string>;
  const std::string hard(255, 'a');
  const struct {
    std::string Text;
    Names Taken, Left;
  } cases[] = {
      {"", {"any"}, {}},
      {" ; ", {"any"}, {}},
      {" PORT ", {"report.txt"}, {"rep.ort"}},
      {"a b", {"xa by"}, {"ab"}},
      {"*.txt", {"A.TXT"}, {"a.txt.gz"}},
      {"r*t", {"report"}, {"report.txt2"}},
      {"*a*b*", {"xaxbx"}, {"xbxax"}},
      {"**", {""}, {}},
      {"?", {"\xC3\xA4"}, {}},             // one letter of two bytes
      {"??", {"\xFF\xC3"}, {"\xC3\xA4"}},  // bytes that are no UTF-8
      {"*?\xC3\xA4", {"\xC3\xA4\xC3\xA4"}, {}},
      {"?*", {}, {""}},
      {"n#", {"n5"}, {"nx", "n55"}},
      {"#*.jp?g", {"1.jpeg"}, {}},
      {"a*ab", {"aaab"}, {}},
      {"*.c; *.h ;readme", {"x.H", "old README 2"}, {"x.hh"}},
      {"[a-z]", {}, {"b"}},
      {"*a*a*a*a*a*a*a*a*a*a*a*b", {}, {hard}},
      {"*a*a*a*a*a*a*a*a*a*a*a*", {hard}, {}},
  };
  for (const auto& one : cases) {
    NameFilter filter;
    filter.SetText(one.Text);
    for (const bool taken : {true, false}) {
      for (const std::string& name : taken ? one.Taken : one.Left) {
        EXPECT_EQ(filter.Takes(name, false), taken) << one.Text << " " << name;
      }
    }
  }
}

TEST(NameFilter, IgnoresCaseBeyondAscii) {
  NameFilter filter;
  filter.SetText("\xC3\x84R");  // an A with two dots
  EXPECT_TRUE(filter.Takes("B\xC3\xA4r \xFF", false));
  EXPECT_EQ(LowerCase("\xC3\x84\xFFX"), "\xC3\xA4\xFFx");
}

}  // namespace
}  // namespace tarnwell::lister
