#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "workspace/ArrangePanes.h"

namespace tarnwell::workspace {
namespace {

bool Inside(const Place& inner, const Place& outer) {
  return inner.Width >= 0 && inner.Height >= 0 && inner.Left >= outer.Left &&
         inner.Top >= outer.Top && inner.Left + inner.Width <= outer.Left + outer.Width &&
         inner.Top + inner.Height <= outer.Top + outer.Height;
}

bool Overlap(const Place& one, const Place& other) {
  return one.Left < other.Left + other.Width && other.Left < one.Left + one.Width &&
         one.Top < other.Top + other.Height && other.Top < one.Top + one.Height;
}

constexpr ArrangeMeasures Measures{.InsideWidth = 15120,
                                   .InsideHeight = 10720,
                                   .ToolbarBottom = 600,
                                   .TitleHeight = 315,
                                   .TitlePictureWidth = 315,
                                   .PaneGap = 60};

// Whatever a settings file holds, the panes share the form without a hole.
TEST(ArrangePanesTest, FillsTheFormWithOpenPanesForAnyRecord) {
  using Float = std::numeric_limits<float>;
  using Int = std::numeric_limits<std::int32_t>;
  constexpr float infinity = Float::infinity(), none = Float::quiet_NaN();
  constexpr float shares[] = {0,     .5F,  .35F, 1,     1e-30F,   -1,   7,
                              1e30F, -.1F, 1e9,  .001F, infinity, none, -infinity};
  constexpr base::Twips splits[] = {0, 1, 4000, 4100, 14000, -60, Int::max(), Int::min()};
  constexpr std::int32_t states[] = {Open, Open, Closed, 5};
  std::mt19937 random(20);
  const auto any = [&random](const auto& table) { return table[random() % std::size(table)]; };
  for (int round = 0; round < 5000; ++round) {
    PaneRecords panes;
    for (PaneRecord& pane : panes) {
      pane.Status = any(states);
      pane.PercentWidth = any(shares);
      pane.PercentHeightH = any(shares);
      pane.Height = any(splits);
      pane.WidthH = any(splits);
    }
    const auto open = std::ranges::count_if(panes, &PaneRecord::IsOpen);
    ArrangeMeasures m = Measures;
    m.Layout = static_cast<std::int32_t>(random() % 2);
    m.InsideWidth = static_cast<base::Twips>(random() % 60000) - 600;
    m.InsideHeight = static_cast<base::Twips>(random() % 60000) - 600;
    const Place area{60, 660, m.InsideWidth - 120, m.InsideHeight - 720};
    const bool hasRoom = area.Width > 400 && area.Height > 400;
    SCOPED_TRACE(testing::Message() << "round " << round << ", " << open << " open");
    base::Twips covered = 0;
    const auto places = ArrangePanes(panes, m);
    for (std::size_t i = 0; i < panes.size(); ++i) {
      const auto& [back, title, picture, close, folders, files] = places[i];
      if (!panes[i].IsOpen()) {
        ASSERT_EQ(back.Width + back.Height + folders.Width + files.Height, 0);
        continue;
      }
      for (const Place& each : {back, title, folders, files}) {
        ASSERT_TRUE(each.Width >= 0 && each.Height >= 0);
      }
      if (!hasRoom) continue;
      ASSERT_TRUE(Inside(back, area));
      if (back.Height >= 315 && back.Width >= 630) {
        ASSERT_TRUE(Inside(folders, back) && Inside(files, back) && Inside(title, back) &&
                    Inside(picture, back) && Inside(close, back));
        ASSERT_FALSE(Overlap(folders, files) || Overlap(folders, title) || Overlap(files, title));
      }
      const base::Twips size = m.Layout == Vertical ? back.Width : back.Height;
      const base::Twips whole = m.Layout == Vertical ? area.Width : area.Height;
      ASSERT_GE(size, (whole - (open - 1) * 60) / 500 - 1);  // no pane is out of reach
      covered += size;
      for (std::size_t j = 0; j < i; ++j) {
        ASSERT_FALSE(panes[j].IsOpen() && Overlap(back, places[j].Back));
      }
    }
    if (open == 0 || !hasRoom) continue;
    ASSERT_EQ(covered + (open - 1) * 60, m.Layout == Vertical ? area.Width : area.Height);
  }
}

TEST(ArrangePanesTest, GivesEachPaneItsShareAndEachListItsPart) {
  PaneRecords panes;
  for (const std::size_t closed : {0U, 2U, 3U}) panes[closed].Status = Closed;
  panes[1].PercentHeightH = 0.65F;
  panes[4].PercentHeightH = 0.35F;
  panes[1].WidthH = 4100;
  panes[4].WidthH = 90000;  // wider than the form
  const auto places = ArrangePanes(panes, Measures);
  EXPECT_NEAR(places[1].Back.Height, 6461, 1);
  EXPECT_NEAR(places[4].Back.Height, 3479, 1);
  EXPECT_EQ(places[1].FolderList.Width, 4040);
  EXPECT_EQ(places[1].FileList.Left, 4160);
  EXPECT_GT(places[4].FileList.Width, 1000);
}

}  // namespace
}  // namespace tarnwell::workspace
