#include <gtest/gtest.h>

#include <limits>
#include <locale>
#include <string>

#include "settings/RecordWriter.h"

namespace tarnwell::settings {
namespace {

std::string Line(const SettingRecord& record) {
  std::string line;
  EXPECT_TRUE(AppendRecord(line, record));
  return line;
}

struct CommaForPoint : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST(RecordWriterTest, WritesEachTypeInItsForm) {
  EXPECT_EQ(Line({"End", {}}), "\"End\",0,0,0,0,0\r\n");
  EXPECT_EQ(Line({"Heading", {100, 3, std::string("Width"), 1200, {}}}),
            "\"Heading\",100,3,\"Width\",1200,0\r\n");
  EXPECT_EQ(Line({"k", {true, false, -2147483647 - 1, std::string(), std::string("a,b")}}),
            "\"k\",#TRUE#,#FALSE#,-2147483648,\"\",\"a,b\"\r\n");
}

TEST(RecordWriterTest, SpellsFloatsWhateverTheLocale) {
  const std::locale before = std::locale::global({std::locale::classic(), new CommaForPoint});
  EXPECT_EQ(Line({"single", {.5f, -.25f, 4100.f, 1.5e7f, 1e-5f}}),
            "\"single\",.5,-.25,4100,1.5E+07,1E-05\r\n");
  EXPECT_EQ(Line({"single", {1.f / 3, 9999999.f, .0001f, -0.f, 16777216.f}}),
            "\"single\",.3333333,9999999,.0001,0,1.677722E+07\r\n");
  EXPECT_EQ(Line({"double", {1. / 3, 1e14, 1e15, -1.05, 10.25}}),
            "\"double\",.333333333333333,100000000000000,1E+15,-1.05,10.25\r\n");
  using Limits = std::numeric_limits<double>;
  EXPECT_EQ(Line({"far",
                  {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max(),
                   std::numeric_limits<float>::infinity()}}),
            "\"far\",0,0,0,1.79769313486231E+308,0\r\n");
  std::locale::global(before);
}

TEST(RecordWriterTest, LeavesOutWhatCannotBeCarried) {
  for (const char* text : {"a\"b", "a\rb", "a\n"}) {
    std::string file = "before";
    EXPECT_FALSE(AppendRecord(file, {text, {}}));
    EXPECT_FALSE(AppendRecord(file, {"BookMark", {0, {}, {}, {}, std::string(text)}}));
    EXPECT_EQ(file, "before");
  }
}

}  // namespace
}  // namespace tarnwell::settings
