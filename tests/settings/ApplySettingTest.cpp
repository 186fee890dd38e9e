#include "TestProgram.h"

namespace tarnwell::settings {
namespace {

class ApplySettingTest : public testing::Test, public TestProgram {
 protected:
  // Reads the lines as a settings file; bad records end where they stand.
  void Read(const std::string& lines) {
    ReadMarkers markers;
    Platform.Files.AddFile(Path, lines);
    File.Clear();
    File.ReadSettingsFile(GlobalScope, markers);
  }
};

TEST_F(ApplySettingTest, SkipsRecordsThatNameNothingAndEndsBadOnesWhereTheyStand) {
  Read(
      "\"BookMark\",10,\"x\",0,0,0\r\n\"BookMark\",-1,\"x\",0,0,0\r\n"
      "\"BookMark\",9,\"nine\",0,0,0\r\n\"InitialDrive\",5,\"D\",0,0,0\r\n"
      "\"InitialDrive\",3,\"\",0,0,0\r\n\"InitialDrive\",4,\"D\",0,0,0\r\n"
      "\"Status\",1,0,word,0,0\r\n\"Order\",7,8,40000,9,9\r\n\"PercentWidth\",.25,#TRUE#,1E39,1,1"
      "\r\n\"FileCountMax\",many,0,0,0,0\r\n\"NoSuchKey\",1,0,0,0,0\r\n\"Left\",,5,5,5,5\r\n"
      "\"HeightH\",1,2,3,4,5\r\n");
  for (std::size_t slot = 0; slot < 10; ++slot) {
    EXPECT_EQ(Space.Settings.Bookmarks[slot].Path, slot == 9 ? "nine" : "(empty)");
  }
  EXPECT_EQ(Pane(3).InitialDrive + Pane(4).InitialDrive, "CD");
  EXPECT_EQ(Pane(2).Status, workspace::Closed);
  EXPECT_EQ(PressedPanes(), "1");
  EXPECT_TRUE(Pane(1).Order == 8 && Pane(2).Order == 0);
  EXPECT_TRUE(Pane(0).PercentWidth == .25F && Pane(1).PercentWidth == -1 &&
              Pane(2).PercentWidth == 0 && Pane(3).PercentWidth == 0);
  EXPECT_EQ(Space.Settings.FileCountMax, 50);
  EXPECT_TRUE(Pane(1).Left == 0 && Pane(4).HeightH == 5);
}

// A record reaches the lists of its own pane alone, each key the kind of list that it is meant for.
TEST_F(ApplySettingTest, KeepsTheScopesApart) {
  Space.Lists.Create(1);
  Read(
      "\"Heading\",0,2,\"Width\",900,0\r\n\"heading\",101,2,\"Width\",1500,0\r\n"
      "\"Sorting\",1,0,\"sSize\",\"des\",0\r\n\"SORTING\",101,0,\"sSize\",\"des\",0\r\n"
      "\"Expanded\",1,\"C:\\Data\",0,0,0\r\n\"Expanded\",101,\"C:\\No\",0,0,0\r\n"
      "\"Active\",1,\"C:\\\",\"C:\\Data\",0,0\r\n\"ListType\",1,9,0,0,0\r\n"
      "\"ListType\",101,8,0,0,0\r\n\"ListMode\",101,word,0,0,0\r\n\"ListMode\",101,4,0,0,0\r\n"
      "\"Heading\",1,99,\"Width\",1,0\r\n\"Heading\",word,0,\"Width\",1,0\r\n"
      "\"FileCountMax\",77,0,0,0,0\r\n");
  const lister::ListerControl &folders = Space.Lists.Folders(1), &files = Space.Lists.Files(1);
  EXPECT_EQ(files.ListMode, 0);  // nothing yet: these keys are no settings of the program
  Space.Settings.FileCountMax = 51;
  File.ReplayPaneSettings(1);
  EXPECT_EQ(Space.Settings.FileCountMax, 51);
  EXPECT_EQ(base::ToInt32(files.HeadingProperty(2, "Width")), 1500);
  EXPECT_NE(base::ToInt32(Space.Lists.Folders(0).HeadingProperty(2, "Width")), 900);
  std::string key, direction;
  EXPECT_TRUE(folders.GetSortKey(0, key, direction));
  EXPECT_EQ(key + direction, "sSizedes");
  EXPECT_TRUE(files.GetSortKey(0, key, direction));
  EXPECT_EQ(key + direction, "sNameasc");
  EXPECT_EQ(folders.ExpandedFolder(0) + files.ExpandedFolder(0), "C:\\Data");
  EXPECT_EQ(folders.DriveFolder("C"), "C:\\Data");
  EXPECT_EQ(folders.ListType * 100 + files.ListType * 10 + files.ListMode, 84);
}

}  // namespace
}  // namespace tarnwell::settings
