#include "Test.h"
#include "workspace/ArrangePanes.h"
#include "workspace/PaneShares.h"

namespace tarnwell::workspace {
namespace {

using base::Twips;

constexpr FormMeasures Measures{.Layout = Vertical,
                                .InsideWidth = 15120,
                                .InsideHeight = 10720,
                                .ToolbarHeight = 435,
                                .TitleHeight = 255,
                                .TitlePictureWidth = 315,
                                .ClosePictureWidth = 315,
                                .PaneGap = 60,
                                .CommandStripHeight = 335};
constexpr Twips PictureHeight = 315;  // of those in a title

bool Inside(const Place& inner, const Place& outer) {
  return inner.Width >= 0 && inner.Height >= 0 && inner.Left >= outer.Left &&
         inner.Top >= outer.Top && inner.Right() <= outer.Right() &&
         inner.Bottom() <= outer.Bottom();
}

bool Overlap(const Place& one, const Place& other) {
  return one.Left < other.Right() && other.Left < one.Right() && one.Top < other.Bottom() &&
         other.Top < one.Bottom();
}

// The first `open` panes are open, with equal shares.
PaneRecords Equal(int open) {
  PaneRecords panes;
  for (std::size_t i = 0; i < panes.size(); ++i) {
    panes[i].Status = static_cast<int>(i) < open ? Open : Closed;
    panes[i].PercentWidth = panes[i].PercentHeightH = 1.0F / static_cast<float>(open);
    panes[i].Height = DefaultHeight;
    panes[i].WidthH = DefaultWidthH;
    panes[i].ControlGroup = static_cast<std::int16_t>(i);
  }
  return panes;
}

std::vector<Twips> Sizes(const PaneRecord& pane) {
  return {pane.Width,         pane.HeightH,         pane.Height,
          pane.WidthH,        pane.FolderListWidth, pane.FolderListHeight,
          pane.FileListWidth, pane.FileListHeight,  pane.Left,
          pane.Top,           pane.FolderHasRoom,   pane.FileHasRoom};
}

// Whatever a settings file holds, all open panes can be seen and worked with.
TEST(ArrangePanesTest, KeepsEveryOpenPaneApartAndInsideForAnyRecord) {
  using Float = std::numeric_limits<float>;
  using Int = std::numeric_limits<std::int32_t>;
  constexpr float infinity = Float::infinity(), none = Float::quiet_NaN();
  constexpr float shares[] = {0,     .5F,  .35F, 1,     1e-30F,   -1,   7,
                              1e30F, -.1F, 1e9,  .001F, infinity, none, -infinity};
  constexpr Twips splits[] = {0, 1, 149, 4000, 4100, 14000, -60, Int::max(), Int::min()};
  constexpr std::int32_t states[] = {Open, Open, Closed, 5};
  constexpr std::int16_t groups[] = {0, 1, 2, 3, 4, 9, -1};
  constexpr Twips insides[] = {0, 15, 1999, 2735, 3500, 9600, 15120, 57600, 240'000'000};
  std::mt19937 random(20);
  const auto any = [&random](const auto& table) { return table[random() % std::size(table)]; };
  int placed = 0;
  for (int round = 0; round < 20000; ++round) {
    PaneRecords panes = Equal(5);
    const bool keepsGroups = random() % 3 != 0;
    for (PaneRecord& pane : panes) {
      pane.Status = any(states);
      pane.PercentWidth = any(shares);
      pane.PercentHeightH = any(shares);
      pane.Height = any(splits);
      pane.WidthH = any(splits);
      if (!keepsGroups) pane.ControlGroup = any(groups);
    }
    FormMeasures m = Measures;
    m.Layout = static_cast<std::int32_t>(random() % 2);
    m.InsideWidth = any(insides);
    m.InsideHeight = any(insides);
    m.CommandOn = random() % 2 == 0;
    SCOPED_TRACE(testing::Message() << "round " << round);
    const Arrangement result = ArrangePanes2(panes, m);
    if (!result.IsPlaced) continue;
    ++placed;
    const Twips bottom = m.InsideHeight - (m.CommandOn ? 335 : 0);
    const Place area{0, m.ToolbarHeight, m.InsideWidth, bottom - m.ToolbarHeight};
    double sum = 0;
    std::vector<Place> backs;
    for (std::size_t i = 0; i < panes.size(); ++i) {
      const PanePlaces& at = result.Places[i];
      const PaneRecord& pane = result.Panes[i];
      if (!pane.IsOpen()) continue;
      const Place& folders = at.Folders.List;
      const Place& files = at.Files.List;
      sum += pane.*ShareField(m.Layout);
      for (const Place& each : {at.Back, at.Title, folders, files, at.Folders.PlaceHolder,
                                at.Files.PlaceHolder, at.Folders.NoRoom}) {
        ASSERT_TRUE(each.Width >= 0 && each.Height >= 0);
      }
      // In reach: a title to see, a bar to take hold of.
      ASSERT_TRUE(Inside(at.Back, area) && at.Back.Width >= 200 && at.Back.Height >= 255);
      const Place row{at.Title.Left, at.Title.Top, at.Title.Width, PictureHeight};
      ASSERT_TRUE(Inside({row.Left, row.Top, row.Width, 255}, at.Back) && row.Width >= 200);
      ASSERT_FALSE(Overlap(folders, files) || Overlap(folders, row) || Overlap(files, row));
      ASSERT_TRUE(Inside(folders, at.Back) && Inside(files, at.Back));
      backs.push_back(at.Back);
    }
    for (const Place& one : backs) {
      const auto over = [&one](const Place& other) { return Overlap(one, other); };
      ASSERT_EQ(std::ranges::count_if(backs, over), 1);
    }
    ASSERT_NEAR(sum, backs.empty() ? 0 : 1, 0.001);

    const Arrangement again = ArrangePanes2(result.Panes, m);
    for (std::size_t i = 0; i < panes.size(); ++i) {
      ASSERT_EQ(Sizes(again.Panes[i]), Sizes(result.Panes[i])) << i;
    }
  }
  EXPECT_GT(placed, 5000);
}

TEST(ArrangePanesTest, LaysColumnsFromEdgeToEdge) {
  PaneRecords panes = Equal(3);
  panes[0].PercentWidth = 0.5F;
  panes[1].PercentWidth = panes[2].PercentWidth = 0.25F;
  panes[1].Height = 90000;
  const auto [isPlaced, area, records, places, horz, vert, path, command] =
      ArrangePanes2(panes, Measures);
  EXPECT_EQ((std::vector{area.TitleTop, area.RowsHeight, area.ColumnHeight, area.ListsTop,
                         Twips{area.FirstOpenPane}, Twips{area.LastOpenPane}}),
            (std::vector<Twips>{430, 10285, 9970, 690, 0, 2}));
  EXPECT_EQ(Sizes(records[0]),
            (std::vector<Twips>{7560, 0, 4000, 4100, 7470, 3910, 7470, 5880, 0, 0, true, true}));
  // The split leaves 500, on the grid.
  EXPECT_EQ(Sizes(records[1]),
            (std::vector<Twips>{3780, 0, 9500, 4100, 3720, 9410, 3720, 380, 7560, 0, true, false}));
  const PanePlaces& middle = places[1];
  EXPECT_EQ(places[2].Folders.List.Right(), 15120 - 60);
  EXPECT_EQ(middle.ClosePicture.Left + 315, middle.Folders.List.Right());
  EXPECT_EQ(middle.Files.PlaceHolder.Width, 3720 - 210);
  EXPECT_EQ(middle.Files.NoRoom.Left, middle.Files.List.Left + 155);
  EXPECT_EQ((std::vector{horz.Width, vert.Top, vert.Height}),
            (std::vector<Twips>{15120, 690, 9970}));

  for (const auto& [height, rounded] : {std::pair{4149, 4100}, {4150, 4200}, {4250, 4200}}) {
    panes[0].Height = height;
    EXPECT_EQ(ArrangePanes2(panes, Measures).Panes[0].Height, rounded);
  }
}

TEST(ArrangePanesTest, LaysRowsAboveTheCommandLine) {
  FormMeasures m = Measures;
  m.Layout = Horizontal;
  m.CommandOn = true;
  PaneRecords panes = Equal(2);
  panes[0].WidthH = 14900;
  const Arrangement result = ArrangePanes2(panes, m);
  EXPECT_EQ(Sizes(result.Panes[1]), (std::vector<Twips>{0, 4975, 4000, 4100, 4010, 4570, 10930,
                                                        4570, 0, 5375, true, true}));
  EXPECT_EQ(result.Panes[0].WidthH, 14300);
  const PanePlaces& second = result.Places[1];
  EXPECT_EQ(second.Files.List.Right(), 15120 - 60);
  EXPECT_EQ(second.Folders.PlaceHolder.Height, 4570 - 105);
  EXPECT_EQ(result.LineVert2.Top, 690 - 255 + 30);
  EXPECT_EQ(result.CurrentPath.Top, 10720 - 305);
  EXPECT_EQ(result.Command.Right(), 15120 - 60);
  m.InsideHeight = 2300;
  EXPECT_FALSE(ArrangePanes2(panes, m).IsPlaced);
  m.InsideWidth = 0;
  EXPECT_EQ(ArrangePanes2(panes, m).Area.AreaWidth, 0);
}

}  // namespace
}  // namespace tarnwell::workspace
