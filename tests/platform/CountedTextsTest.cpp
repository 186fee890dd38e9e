#include <gtest/gtest.h>

#include "fakes/FakePlatform.h"
#include "platform/CountedTexts.h"

namespace tarnwell::platform {
namespace {

const fakes::FakeNumberForms Forms;

TEST(CountedTexts, EachFormOfEachTextHasTheSameParts) {
  const auto has = [](const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
  };
  for (std::size_t at = 0; at < CountedTextCount; ++at) {
    const auto tell = [at](std::uint64_t number) {
      return Counted(Forms, static_cast<CountedText>(at), number, {"<a>", "<b>"});
    };
    const std::string one = tell(1), many = tell(2000);
    EXPECT_TRUE(has(many, "2,000") || has(many, "<a>")) << many;
    for (const char* const part : {"<a>", "<b>"}) EXPECT_EQ(has(one, part), has(many, part)) << one;
    EXPECT_FALSE(has(many, "<b>") && !has(many, "<a>")) << many;
    for (const char* const open : {"#", "%1", "%2", "%3"})
      EXPECT_FALSE(has(one + many, open)) << one;
  }
}

TEST(CountedTexts, TheNumberChoosesTheFormAndPartsAreTakenAsTheyAre) {
  EXPECT_EQ(Counted(Forms, CountedText::Items, 0) + ", " + Counted(Forms, CountedText::Items, 1) +
                ", " + Counted(Forms, CountedText::Items, 1001),
            "0 items, 1 item, 1,001 items");
  EXPECT_EQ(Counted(Forms, CountedText::MovingTo, 2, {"100 %1 #"}), "Moving 2 items to 100 %1 #");
  EXPECT_EQ(Counted(Forms, CountedText::PercentOfDeed, 30, {"Copying"}), "30% - Copying");
  EXPECT_EQ(Counted(Forms, CountedText::Hidden, 1), "The only item here is hidden");
  EXPECT_EQ(Filled("%2 # of %1", {"%2", "a"}), "a # of %2");
}

}  // namespace
}  // namespace tarnwell::platform
