#include <algorithm>

#include "TestProgram.h"

namespace tarnwell::settings {
namespace {

class LoadLastSettingsTest : public testing::Test, public TestProgram {};

TEST_F(LoadLastSettingsTest, StartsWithTheDefaultsWhereThereIsNoFile) {
  const ReadMarkers markers = Start();
  EXPECT_TRUE(!markers.PositionFound && markers.FirstArrangement && markers.FirstTips);
  EXPECT_EQ(PressedPanes(), "01");
  for (const char* button : {"layouthorizontal", "compare_size", "compare_date"}) {
    EXPECT_TRUE(Space.Form.Toolbar1[button].Pressed) << button;
  }
  EXPECT_TRUE(Pane(0).Initialized && Pane(1).Initialized && !Pane(2).Initialized);
  EXPECT_EQ(Space.OpenPaneCount, 2);
  EXPECT_EQ(Space.InitialActivePane + Space.PreviousActivePane, 0);
  EXPECT_TRUE(Messages.Texts.empty());
  const Texts saved = Saved();
  for (const char* line :
       {"\"SkinName\",\"EARL GREY\",0,0,0,0", "\"FileCountMax\",50,0,0,0,0",
        "\"PercentHeightH\",.65,.35,0,0,0", "\"Height\",4000,4000,4000,4000,4000",
        "\"ShowSystem\",#FALSE#,0,0,0,0", "\"BookMark\",0,\"(empty)\",0,0,0"}) {
    EXPECT_EQ(std::ranges::count(saved, line), 1) << line;
  }
}

TEST_F(LoadLastSettingsTest, PlacesTheWindowAndClearsTheFirstRunFlagsWithAnyRecord) {
  const std::string position = "\"ProgramPosition\"";
  const struct {
    std::string Content;
    bool First, Found, Maximised;
    base::Twips Top, Left, Width;
  } cases[] = {
      {"", true, false, true, 1050, 1500, 15600},
      {"\r\n", false, false, true, 1050, 1500, 15600},
      {"\"PROGRAMPOSITION\",300,450,9000,6000,0", false, false, true, 300, 450, 9000},
      {position + ",300,450,9000,6000,0", false, true, false, 300, 450, 9000},
      {position, false, true, false, 1050, 1500, 15600},
      {position + ",\"max\",-60,-75,0,0", false, true, true, -60, -75, 15600},
      {position + ",-48000,-48000,2400,405,0", false, true, true, 1050, 1500, 15600},
      {position + ",300,\"left\",9000,6000,0", false, true, false, 300, 1500, 15600},
      {position + ",\"other\",2,3,0,0", false, true, false, 1050, 1500, 15600},
      {position + ",2.5,3.5,40000,1,0", false, true, false, 2, 4, 40000},
  };
  for (const auto& each : cases) {
    TestProgram run(Shared);
    workspace::MainForm& form = run.Space.Form;
    form.Top = 1050;
    form.Left = 1500;
    form.Width = 15600;
    form.ResizeEnabled = true;
    const ReadMarkers markers = run.StartWith(each.Content);
    EXPECT_TRUE(markers.FirstArrangement == each.First && markers.FirstTips == each.First &&
                markers.PositionFound == each.Found)
        << each.Content;
    EXPECT_TRUE(form.Top == each.Top && form.Left == each.Left && form.Width == each.Width)
        << each.Content << ": " << form.Top << ", " << form.Left << ", " << form.Width;
    EXPECT_EQ(form.State == forms::WindowState::Maximised, each.Maximised) << each.Content;
    // Placed without an arrangement.
    EXPECT_EQ(form.ResizeEnabled, each.Content.find(',') == std::string::npos) << each.Content;
  }
}

TEST_F(LoadLastSettingsTest, SetsUpPaneZeroAndTheOpenPanes) {
  using workspace::Ids;
  StartWith("\"Status\",1,5,0,1,0\r\n\"InitialDrive\",2,\"D\",0,0,0\r\n");
  EXPECT_EQ((Ids{Space.OpenPaneCount, Space.InitialActivePane, Space.CurrentList}), (Ids{2, 2, 2}));
  EXPECT_TRUE(Pane(0).Initialized && !Pane(1).Initialized && Pane(2).Initialized);
  EXPECT_EQ(Space.Lists.Folders(2).CurrentFolder(), "D:\\");
  EXPECT_EQ(Status[4] + Status[5], "loading pane 3...loading pane 5...");

  TestProgram closed(Shared);
  closed.StartWith("\"Status\",1,1,1,1,1\r\n");
  // There is no window without a pane.
  EXPECT_EQ((Ids{closed.Space.OpenPaneCount, closed.Space.CurrentList}), (Ids{1, 0}));
  EXPECT_TRUE(closed.Pane(0).IsOpen() && closed.Pane(0).DriveLoaded);
  EXPECT_EQ(closed.PressedPanes(), "0");
  EXPECT_TRUE(Messages.Texts.empty() && closed.Messages.Texts.empty());
}

TEST_F(LoadLastSettingsTest, BearsThousandsOfExpandedFolders) {
  std::string folders;
  for (int i = 0; i < 30000; ++i) {
    folders += "\"Expanded\",0,\"C:\\gone " + std::to_string(i) + "\",0,0,0\r\n";
  }
  StartWith(folders);
  EXPECT_EQ(Space.Lists.Folders(0).ExpandedFolder(0), "C:\\");
}

}  // namespace
}  // namespace tarnwell::settings
