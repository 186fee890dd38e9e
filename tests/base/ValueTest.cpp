#include "Test.h"
#include "base/Value.h"

namespace tarnwell::base {
namespace {

TEST(ValueTest, NumbersRoundToEvenAndKeepTheirRange) {
  EXPECT_EQ(ToInt32(2.5), 2);
  EXPECT_EQ(ToInt32(-3.5f), -4);
  EXPECT_EQ(ToInt32(true), -1);
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  EXPECT_THROW(ToInt32(2147483647.5), ConversionError);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_THROW(ToInt16(32768), ConversionError);
  EXPECT_THROW(ToInt16(std::numeric_limits<double>::quiet_NaN()), ConversionError);
  EXPECT_EQ(ToSingle(.5), .5f);
  EXPECT_THROW(ToSingle(1e39), ConversionError);
}

TEST(ValueTest, TextConvertsWhenAllOfItSpellsTheValue) {
  EXPECT_EQ(ToInt32(std::string(" -12 ")), -12);
  EXPECT_EQ(ToDouble(std::string("+.5E+01")), 5);
  for (const char* text : {"", " ", "12a", "1 2", "--1", "+-1", "inf", "0x10", "1e999", "1,5"}) {
    EXPECT_THROW(ToDouble(std::string(text)), ConversionError) << text;
  }
  EXPECT_TRUE(ToBoolean(std::string("TRUE")));
  EXPECT_FALSE(ToBoolean(std::string(" false")));
  EXPECT_TRUE(ToBoolean(std::string("-.1")));
  EXPECT_TRUE(ToBoolean(.1));
  EXPECT_FALSE(ToBoolean(0));
  EXPECT_THROW(ToBoolean(std::string("yes")), ConversionError);
}

TEST(ValueTest, GivesShortTextAndRefusesNothing) {
  EXPECT_EQ(ToText(-7), "-7");
  EXPECT_EQ(ToText(.1f), "0.1");
  EXPECT_EQ(ToText(1e20), "1E+20");
  EXPECT_EQ(ToText(true), "True");
  EXPECT_THROW(ToText(Value()), ConversionError);
  EXPECT_THROW(ToBoolean(Value()), ConversionError);
}

}  // namespace
}  // namespace tarnwell::base
