#include "Test.h"
#include "base/Text.h"
#include "base/WideText.h"

namespace tarnwell::base {
namespace {

TEST(TextTest, EveryByteSequenceComesBackFromItsCodePoints) {
  const std::string valid = "a\u00e9\u20ac\U0001F600\U0010FFFF";
  EXPECT_EQ(CodePointCount(valid), 5u);
  // Longer forms than needed, a surrogate, beyond the last code point, a lone trailer, cut short.
  const std::string stray = "\xC0\x80\xE0\x80\x80\xED\xA0\x80\xF4\x90\x80\x80\x80\xFF\xE2\x82";
  EXPECT_EQ(CodePointCount(stray), stray.size());
  for (const std::string& text : {valid, stray, valid + stray + valid}) {
    std::string again;
    for (std::size_t position = 0; position < text.size();) {
      AppendCodePoint(again, NextCodePoint(text, position));
    }
    EXPECT_EQ(again, text);
  }
}

TEST(TextTest, CutsBetweenCodePoints) {
  const std::string text = "\u00e4\u00f6\xFFxyz\u20ac";
  EXPECT_EQ(FirstCodePoints(text, 3), "\u00e4\u00f6\xFF");
  EXPECT_EQ(LastCodePoints(text, 2), "z\u20ac");
  EXPECT_EQ(LastCodePoints(text, 99), text);
  EXPECT_EQ(LastCodePoints(text, 0), "");
  EXPECT_EQ(Shorten(text, 7, 1, 1), text);
  EXPECT_EQ(Shorten(text, 6, 1, 1), "\u00e4...\u20ac");
}

TEST(TextTest, ShowsWhatCannotBeSeen) {
  EXPECT_EQ(ForDisplay(std::string("a\0\n\x7F\xFF\u0085\u2028\u00e9", 12)),
            "a\u2400\u240A\u2421\uFFFD\uFFFD\u2424\u00e9");
  // What turns the order round or takes no room would make one name pass for another.
  const std::string deceiving = "\u061C\u200B\u200E\u200F\u202A\u202E\u2060\u2066\u2069\uFEFF";
  EXPECT_EQ(ForDisplay(deceiving), ForDisplay(std::string(10, '\xFF')));
  EXPECT_EQ(ForDisplay("\u200C\u200D\u05D0"), "\u200C\u200D\u05D0");
  for (const std::string& name :
       {std::string("\uFEFFa\uFDD1\x01\x7F\xFF\u0085\U0001F600\u00e9"), deceiving}) {
    const std::u16string edited = ForEditing(name);
    EXPECT_EQ(edited.find_first_of(u"\uFEFF\uFDD1\u202E\x01\u0085"), edited.npos);
    EXPECT_EQ(FromEditing(edited + u"b"), name + "b");
  }
}

TEST(TextTest, WideNamesComeBackWhateverTheyHold) {
  const std::u16string odd = {u'a', 0xD800, 0xE9, 0xDC80, 0xD83D, 0xDE00, 0xDBFF, 0, 0xFFFF, 0x7FF};
  EXPECT_EQ(ToWide(FromWide(odd)), odd);
  EXPECT_EQ(FromWide(u"\u00e9\u20ac\U0001F600"), "\u00e9\u20ac\U0001F600");
  EXPECT_EQ(ToWide("\xFF\xC0\x80z\xE2\x82"), u"\uFFFD\uFFFD\uFFFDz\uFFFD\uFFFD");
}

TEST(TextTest, CapitalsNeedNoLocaleAndKeepStrayBytes) {
  EXPECT_TRUE(EqualsIgnoringCase("End", "eND"));
  EXPECT_FALSE(EqualsIgnoringCase("End", "End0"));
  EXPECT_EQ(AsciiUpper("a\u00e9[z"), "A\u00e9[Z");
  EXPECT_EQ(ToCapitals("a\u00e9\u0135\xFF\U00010428\U0001F600z"),
            "A\u00c9\u0134\xFF\U00010400\U0001F600Z");
}

}  // namespace
}  // namespace tarnwell::base
