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

TEST_F(LoadLastSettingsTest, ClearsTheFirstRunFlagsWithAnyRecordAndMaximisesWithoutAPosition) {
  struct Case {
    const char* Content;
    bool First, Found, Maximised;
  };
  for (const Case& each : {Case{"", true, false, true}, Case{"\r\n", false, false, true},
                           Case{"\"ProgramPosition\",300,450,9000,6000,0", false, true, false},
                           Case{"\"PROGRAMPOSITION\",300,450,9000,6000,0", false, false, true},
                           Case{"\"ProgramPosition\",-48000,0,0,0,0", false, true, true},
                           Case{"\"ProgramPosition\"", false, true, false}}) {
    TestProgram run(Shared);
    const ReadMarkers markers = run.StartWith(each.Content);
    EXPECT_TRUE(markers.FirstArrangement == each.First && markers.FirstTips == each.First &&
                markers.PositionFound == each.Found &&
                (run.Space.Form.State == forms::WindowState::Maximised) == each.Maximised)
        << each.Content;
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
  EXPECT_EQ((Ids{closed.Space.OpenPaneCount, closed.Space.InitialActivePane}), (Ids{0, -1}));
  EXPECT_TRUE(closed.Pane(0).Initialized && closed.Pane(0).DriveLoaded);
  closed.Layout.ResizeForm(true);
  closed.Panes.ChangePanes(0);
  EXPECT_EQ(closed.Space.CurrentList, 0);
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
