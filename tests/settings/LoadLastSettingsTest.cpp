#include <algorithm>
#include <random>

#include "TestProgram.h"
#include "settings/LoadLastSettings.h"

namespace tarnwell::settings {
namespace {

class LoadLastSettingsTest : public testing::Test, public TestProgram {};

TEST_F(LoadLastSettingsTest, StartsWithTheDefaultsWhereThereIsNoFile) {
  // What the defaults have to put right.
  Space.Settings.SkinName = "other";
  for (const char* entry : {"mnuPane4", "mnuSystem", "mnuCommandOn"}) {
    Space.Form.Menus[entry].Checked = true;
  }
  Space.Form.Toolbar1["layoutvertical"].Pressed = Space.Form.Toolbar1["pane4"].Pressed = true;
  Pane(2).Height = 7;
  const ReadMarkers markers = Start();
  EXPECT_TRUE(!markers.PositionFound && markers.FirstArrangement && markers.FirstTips);
  EXPECT_EQ(Space.Form.State, forms::WindowState::Maximised);
  EXPECT_EQ(PressedPanes(), "01");
  for (const char* ticked :
       {"mnuCompareDate", "mnuCompareSize", "mnuCommandOff", "mnuAutoExpandOff"}) {
    EXPECT_TRUE(Space.Form.Menus[ticked].Checked) << ticked;
  }
  std::string pressed;
  for (const forms::ToolbarButton& button : Space.Form.Toolbar1.Buttons()) {
    if (button.Pressed) pressed += button.Key + " ";
  }
  EXPECT_EQ(pressed, "pane0 pane1 layouthorizontal compare_size compare_date ");
  EXPECT_TRUE(Pane(0).Initialized && Pane(1).Initialized && !Pane(2).Initialized);
  EXPECT_EQ(Space.OpenPaneCount, 2);
  EXPECT_EQ(Space.InitialActivePane + Space.PreviousActivePane, 0);
  EXPECT_EQ(Space.Settings.Bookmarks[9].DisplayPath, "(empty)");
  EXPECT_EQ(Status, (Texts{"getting program defaults...", "loading initial pane defaults...",
                           "arranging setup...", "loading initial pane...", "loading pane 2...",
                           "loading skin..."}));
  EXPECT_TRUE(Messages.Texts.empty());
  // What else there is stands in the file that would be saved now.
  const Texts saved = Saved();
  for (const std::string line : {"\"SkinName\",\"EARL GREY\",0,0,0,0",
                                 "\"Layout\",1,0,0,0,0",
                                 "\"CompareMode\",3,0,0,0,0",
                                 "\"SkipWin9XWarningPanes\",#FALSE#,0,0,0,0",
                                 "\"UseEnhancedMode\",#FALSE#,0,0,0,0",
                                 "\"ShowCommandLine\",#FALSE#,0,0,0,0",
                                 "\"ShowColor\",#FALSE#,0,0,0,0",
                                 "\"ShowFileIcons\",#TRUE#,0,0,0,0",
                                 "\"ShowFolderIcons\",#FALSE#,0,0,0,0",
                                 "\"FileCountMax\",50,0,0,0,0",
                                 "\"MinimizeToTaskBar\",#TRUE#,0,0,0,0",
                                 "\"IsFirstColorCodingOverMax\",#TRUE#,0,0,0,0",
                                 "\"FirstColorEver\",#TRUE#,0,0,0,0",
                                 "\"LayoutAutoExpand\",#FALSE#,0,0,0,0",
                                 "\"OnlineVersion\",0,0,0,0,0",
                                 "\"PercentWidth\",.5,.5,0,0,0",
                                 "\"PercentHeightH\",.65,.35,0,0,0",
                                 "\"Status\",0,0,1,1,1",
                                 "\"Order\",1,2,3,4,5",
                                 "\"ControlGroup\",0,1,2,3,4",
                                 "\"Width\",0,0,0,0,0",
                                 "\"Height\",4000,4000,4000,4000,4000",
                                 "\"WidthH\",4100,4100,4100,4100,4100",
                                 "\"ShowHidden\",#FALSE#,0,0,0,0",
                                 "\"ShowSystem\",#FALSE#,0,0,0,0",
                                 "\"BookMark\",0,\"(empty)\",0,0,0"}) {
    EXPECT_EQ(std::ranges::count(saved, line), line.starts_with("\"ShowCom") ? 2 : 1) << line;
  }
}

TEST_F(LoadLastSettingsTest, ClearsTheFirstRunFlagsWithAnyRecordAndMaximisesWithoutAPosition) {
  struct Case {
    const char* Content;
    bool First, Found, Maximised;
  };
  for (const Case& each :
       {Case{"", true, false, true}, Case{"\"End\",0,0,0,0,0\r\n", false, false, true},
        Case{"\r\n", false, false, true},
        Case{"\"ProgramPosition\",300,450,9000,6000,0", false, true, false},
        Case{"\"PROGRAMPOSITION\",300,450,9000,6000,0", false, false, true},
        Case{"\"ProgramPosition\",-48000,0,0,0,0", false, true, true},
        Case{"\"ProgramPosition\"", false, true, false}}) {
    TestProgram run(Shared);
    const ReadMarkers markers = run.StartWith(each.Content);
    EXPECT_TRUE(markers.FirstArrangement == each.First && markers.FirstTips == each.First);
    EXPECT_EQ(markers.PositionFound, each.Found) << each.Content;
    EXPECT_EQ(run.Space.Form.State == forms::WindowState::Maximised, each.Maximised)
        << each.Content;
  }
}

TEST_F(LoadLastSettingsTest, SetsUpPaneZeroAndTheOpenPanes) {
  StartWith("\"Status\",1,5,0,1,0\r\n\"InitialDrive\",2,\"D\",0,0,0\r\n");
  EXPECT_EQ((workspace::Ids{Space.OpenPaneCount, Space.InitialActivePane, Space.CurrentList}),
            (workspace::Ids{2, 2, 2}));
  EXPECT_TRUE(Pane(0).Initialized && !Pane(1).Initialized && Pane(2).Initialized);
  EXPECT_EQ(Space.Lists.Folders(2).CurrentFolder(), "D:\\");
  EXPECT_EQ(Status[4] + Status[5], "loading pane 3...loading pane 5...");

  TestProgram closed(Shared);
  closed.StartWith("\"Status\",1,1,1,1,1\r\n");
  EXPECT_EQ(closed.Space.InitialActivePane, -1);
  EXPECT_EQ(closed.Space.OpenPaneCount, 0);
  EXPECT_TRUE(closed.Pane(0).Initialized && closed.Pane(0).DriveLoaded);
  closed.Layout.ResizeForm(true);
  closed.Panes.ChangePanes(0);
  EXPECT_EQ(closed.Space.CurrentList, 0);
  EXPECT_TRUE(Messages.Texts.empty() && closed.Messages.Texts.empty());
}

// A line with too few fields takes the start of the next for the rest, and the file is out of step
// from there on, unless a line of one field happens to bring it back.
TEST_F(LoadLastSettingsTest, RunsOnBehindAShortLine) {
  for (const std::string between : {"", "0\r\n"}) {
    TestProgram run(Shared);
    run.StartWith("\"FileCountMax\",60,0,0,0\r\n\"FileCountMax\",70,0,0,0,0\r\n" + between +
                  "\"UseEnhancedMode\",#TRUE#,0,0,0,0\r\n\"ShowHidden\",1,0");
    EXPECT_EQ(run.Space.Settings.FileCountMax, 60);
    EXPECT_EQ(run.Space.Settings.UseEnhancedMode, !between.empty());
    EXPECT_EQ(run.Space.Form.Menus["mnuHidden"].Checked, !between.empty());  // cut short by the end
  }
}

TEST_F(LoadLastSettingsTest, BearsMegabytesOfNoise) {
  const std::string letters = "\"\"\",,,,\r\n01-.E#aHSL \xFF";
  const char* keys[] = {"\"Heading\",", "\"STATUS\",", "\"SORTING\",0,", "\"Active\",1,"};
  std::mt19937 random(3);
  std::string block, noise;
  while (block.size() < 100'001) {
    block += random() % 64 == 0 ? std::string(keys[random() % 4])
                                : std::string(1, letters[random() % letters.size()]);
  }
  while (noise.size() < 5'000'000) noise += block;
  StartWith(noise);
  EXPECT_EQ(Status.back(), "loading skin...");
  EXPECT_TRUE(Pane(0).DriveLoaded);
  EXPECT_EQ(Saved().back(), "\"End\",0,0,0,0,0");
}

// A file can name as many folders as it likes.
TEST_F(LoadLastSettingsTest, BearsThousandsOfExpandedFolders) {
  std::string lines;
  for (int i = 0; i < 30000; ++i) {
    lines += "\"Expanded\",0,\"C:\\gone " + std::to_string(i) + "\",0,0,0\r\n";
  }
  StartWith(lines);
  EXPECT_EQ(Space.Lists.Folders(0).ExpandedFolder(0), "C:\\");
}

TEST_F(LoadLastSettingsTest, ShortensTheBookmarksForMenus) {
  const std::string path = "C:\\" + std::string(97, 'x');  // 100
  StartWith("\"BookMark\",0,\"" + path + "\",0,0,0\r\n\"BookMark\",1,\"" + path + "y\",0,0,0");
  EXPECT_EQ(Space.Settings.Bookmarks[0].DisplayPath, path);
  EXPECT_EQ(Space.Settings.Bookmarks[1].DisplayPath, "C:\\xxxxxxx..." + std::string(86, 'x') + "y");
}

}  // namespace
}  // namespace tarnwell::settings
