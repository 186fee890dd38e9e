#include <algorithm>

#include "TestProgram.h"
#include "settings/SettingsFile.h"

namespace tarnwell::settings {
namespace {

class SettingsFileTest : public testing::Test, public TestProgram {
 protected:
  // A state in which nothing has its default.
  void UseTheProgram() {
    Platform.Files.AddFolder("D:\\Work\\Deep");
    workspace::ProgramSettings& settings = Space.Settings;
    Space.Form.State = forms::WindowState::Normal;
    Space.Form.Top = 300;
    Space.Form.Left = 450;
    Space.Form.Width = 9000;
    Space.Form.Height = 6000;
    settings.SkipWin9XWarningPanes = settings.UseEnhancedMode = settings.ShowFolderIcons = true;
    settings.ShowFileIcons = settings.MinimizeToTaskBar = settings.FirstColorEver = false;
    settings.IsFirstColorCodingOverMax = false;
    settings.Layout = 0;
    settings.CompareMode = 2;
    settings.FileCountMax = -5;
    settings.OnlineVersion = 1.25;
    settings.FolderFileListing = "D:\\Lists";
    settings.Bookmarks[0].Path = "C:\\a, b";
    settings.Bookmarks[9].Path = "\\\\server\\share";
    for (const char* entry : {"mnuCommandOn", "mnuColorOn", "mnuHidden"}) {
      Space.Form.Menus[entry].Checked = true;
    }
    for (int i = 0; i < lister::PaneCount; ++i) {
      workspace::PaneRecord& pane = Pane(i);
      pane.PercentWidth = .2F * static_cast<float>(i);
      pane.PercentHeight = -.25F;
      pane.PercentWidthH = 1.5e7F;
      pane.PercentHeightH = 1.0F / 3;
      pane.Order = static_cast<std::int16_t>(5 - i);
      pane.ControlGroup = static_cast<std::int16_t>(4 - i);
      pane.Width = 1000 + i;
      pane.Height = 2000 + i;
      pane.WidthH = 3000 + i;
      pane.HeightH = 100000 + i;
      pane.Left = -i;
    }
    lister::ListerControl &folders = Space.Lists.Folders(1), &files = Space.Lists.Files(1);
    folders.ChooseDrive("D");
    folders.OpenFolder(0, "D:\\Work\\Deep");
    folders.SortCommand("des");
    files.ListMode = 2;
    files.AddSortKey(0, "sSize", "des");
    files.AddSortKey(1, "sName", "asc");
    files.SetHeadingProperty(3, "Width", 1200);
    files.SetHeadingProperty(3, "active", false);
    files.SetHeadingProperty(2, "Index", 0);
  }
};

TEST_F(SettingsFileTest, WritesEveryRecordInItsOrder) {
  Start();
  UseTheProgram();
  Texts lines = Saved();
  Texts program = {"\"ProgramPosition\",300,450,9000,6000,0",
                   "\"FolderFileListing\",0,0,0,0,0",
                   "\"SkipWin9XWarningPanes\",#TRUE#,0,0,0,0",
                   "\"SkinName\",\"EARL GREY\",0,0,0,0",
                   "\"Layout\",0,0,0,0,0",
                   "\"CompareMode\",2,0,0,0,0",
                   "\"UseEnhancedMode\",#TRUE#,0,0,0,0",
                   "\"ShowCommandLine\",#TRUE#,0,0,0,0",
                   "\"ShowColor\",#TRUE#,0,0,0,0",
                   "\"ShowFileIcons\",#FALSE#,0,0,0,0",
                   "\"ShowFolderIcons\",#TRUE#,0,0,0,0",
                   "\"FileCountMax\",-5,0,0,0,0",
                   "\"MinimizeToTaskBar\",#FALSE#,0,0,0,0",
                   "\"IsFirstColorCodingOverMax\",#FALSE#,0,0,0,0",
                   "\"FirstColorEver\",#FALSE#,0,0,0,0",
                   "\"ShowCommandLine\",#TRUE#,0,0,0,0",
                   "\"LayoutAutoExpand\",#FALSE#,0,0,0,0",
                   "\"OnlineVersion\",1.25,0,0,0,0",
                   "\"PercentWidth\",0,.2,.4,.6,.8",
                   "\"PercentHeight\",-.25,-.25,-.25,-.25,-.25",
                   "\"PercentWidthH\",1.5E+07,1.5E+07,1.5E+07,1.5E+07,1.5E+07",
                   "\"PercentHeightH\",.3333333,.3333333,.3333333,.3333333,.3333333",
                   "\"Status\",0,0,1,1,1",
                   "\"Order\",5,4,3,2,1",
                   "\"ControlGroup\",4,3,2,1,0",
                   "\"Width\",1000,1001,1002,1003,1004",
                   "\"Height\",2000,2001,2002,2003,2004",
                   "\"WidthH\",3000,3001,3002,3003,3004",
                   "\"HeightH\",100000,100001,100002,100003,100004",
                   "\"Left\",0,-1,-2,-3,-4",
                   "\"ShowHidden\",#TRUE#,0,0,0,0",
                   "\"ShowSystem\",#FALSE#,0,0,0,0",
                   "\"BookMark\",0,\"C:\\a, b\",0,0,0"};
  for (const char slot : {'1', '2', '3', '4', '5', '6', '7', '8'}) {
    program.push_back(std::string("\"BookMark\",") + slot + ",\"(empty)\",0,0,0");
  }
  program.emplace_back("\"BookMark\",9,\"\\\\server\\share\",0,0,0");
  program.emplace_back("\"ListType\",100,2,0,0,0");
  ASSERT_GT(lines.size(), 300U);
  EXPECT_EQ(Texts(lines.begin(), lines.begin() + std::ssize(program)), program);
  EXPECT_EQ(lines.back(), "\"End\",0,0,0,0,0");

  // The block of the last pane that is set up.
  const Texts block(std::ranges::find(lines, "\"ListType\",101,2,0,0,0"), lines.end() - 1);
  ASSERT_EQ(block.size(), 8 + 154 + 3);
  EXPECT_EQ(Texts(block.begin() + 1, block.begin() + 8),
            (Texts{"\"InitialDrive\",1,\"D\",0,0,0", "\"ListMode\",101,2,0,0,0",
                   "\"Expanded\",1,\"C:\\\",0,0,0", "\"Expanded\",1,\"D:\\\",0,0,0",
                   "\"Expanded\",1,\"D:\\Work\",0,0,0", "\"Active\",1,\"C:\\\",\"C:\\\",0,0",
                   "\"Active\",1,\"D:\\\",\"D:\\Work\\Deep\",0,0"}));
  const char* attributes[] = {"key", "Width", "Index", "active", "MenuName", "Caption", "ToolTip"};
  for (std::size_t at = 0; at < 154; ++at) {
    const std::string start = "\"Heading\"," + std::string(at < 77 ? "1" : "101") + "," +
                              std::to_string(at % 77 / 7) + ",\"" + attributes[at % 7] + "\",";
    EXPECT_TRUE(block[8 + at].starts_with(start)) << block[8 + at];
  }
  EXPECT_EQ(block[8 + 77 + 22], "\"Heading\",101,3,\"Width\",1200,0");
  EXPECT_EQ(block[8 + 77 + 24], "\"Heading\",101,3,\"active\",#FALSE#,0");
  EXPECT_EQ(Texts(block.end() - 3, block.end()),
            (Texts{"\"SORTING\",1,0,\"sName\",\"des\",0", "\"SORTING\",101,0,\"sSize\",\"des\",0",
                   "\"SORTING\",101,1,\"sName\",\"asc\",0"}));

  Space.Form.State = forms::WindowState::Maximised;
  Space.Form.Top = Space.Form.Left = -60;
  EXPECT_EQ(Saved()[0], "\"ProgramPosition\",\"max\",-60,-60,0,0");
}

TEST_F(SettingsFileTest, ReadsBackWhatItWrote) {
  Start();
  UseTheProgram();
  Texts expected = Saved();
  TestProgram next(Shared);
  next.Start();
  EXPECT_EQ(next.Space.Settings.FolderFileListing, "0");
  EXPECT_EQ(next.Space.Lists.Files(1).CurrentFolder(), "D:\\Work\\Deep");
  EXPECT_TRUE(next.Space.Lists.Files(1).ShowHidden);
  // All comes back the same but for the sort of the file list, which starts by name.
  Texts again = next.Saved();
  EXPECT_EQ(again.end()[-2], "\"SORTING\",101,0,\"sName\",\"asc\",0");
  again.erase(again.end() - 2);
  expected.erase(expected.end() - 3, expected.end() - 1);
  EXPECT_EQ(again, expected);
}

TEST_F(SettingsFileTest, KeepsTheBlockOfAHiddenPaneOverManyRuns) {
  const Texts block = {"\"listtype\",103,7,0,0,0",
                       "\"Heading\",3,0,\"Width\",1200.5,#TRUE#",
                       "\"SORTING\",103,0,\"sSize\",\"des\",0",
                       "\"Expanded\",3,\"D:\\x, y\",-.5,0,0",
                       "\"INITIALDRIVE\",3,\"D\",0,0,0",
                       "\"End\",0,0,0,0,0"};
  std::string content =
      "\"Future\",3,1,0,0,0\r\n\"Active\",word,\"a\",\"b\",0,0\r\n"
      "\"Heading\",203,0,\"Width\",1,0\r\n";
  for (const std::string& line : block) content += line + "\r\n";
  Platform.Files.AddFile(Path, content);
  for (int runs = 0; runs < 3; ++runs) {
    TestProgram run(Shared);
    run.Start();
    const Texts lines = run.Saved();
    ASSERT_EQ(Texts(lines.end() - 6, lines.end()), block) << runs;
    EXPECT_TRUE(lines.end()[-7].starts_with("\"SORTING\",101,"));
  }
  Start();
  Panes.ChangePanes(3);  // shown at last, and so they take effect
  EXPECT_EQ(Space.Lists.Files(3).ListType, 7);
  EXPECT_EQ(Space.Lists.Folders(3).CurrentFolder(), "D:\\");
  EXPECT_EQ(base::ToInt32(Space.Lists.Folders(3).HeadingProperty(0, "Width")), 1200);
}

TEST_F(SettingsFileTest, LeavesTheOldFileWholeWhenItCannotSave) {
  Start();
  const Texts old = Saved();
  Space.Settings.FileCountMax = 99;
  Platform.Files.WriteFault = fakes::MemoryFileSystem::Denied();
  EXPECT_EQ(Saved(), old);
  Platform.Files.WriteFault = {};
  Saved();
  Platform.Files.At(Path).ReadFault = fakes::MemoryFileSystem::Denied();
  TestProgram next(Shared);
  EXPECT_TRUE(next.Start().FirstTips);
  EXPECT_EQ(next.Space.Settings.FileCountMax, 50);
  EXPECT_TRUE(Messages.Texts.empty() && next.Messages.Texts.empty());
}

TEST_F(SettingsFileTest, LeavesOutWhatTheFileCannotCarry) {
  Platform.Files.AddFolder("C:\\odd\"name");
  Start();
  const Texts before = Saved();
  const char* paths[] = {"C:\\a\"b", "C:\\a\nb", "C:\\a\rb", "C:\\\xFF\t,b"};
  for (std::size_t slot = 0; slot < 4; ++slot) Space.Settings.Bookmarks[slot].Path = paths[slot];
  Space.Lists.Folders(0).OpenFolder(0, "C:\\odd\"name");
  EXPECT_EQ(Saved().size(), before.size() - 1);  // without the folder last open
  TestProgram next(Shared);
  next.Start();
  for (std::size_t slot = 0; slot < 4; ++slot) {
    EXPECT_EQ(next.Space.Settings.Bookmarks[slot].Path, slot < 3 ? "(empty)" : paths[slot]);
  }
  EXPECT_EQ(next.Space.Lists.Folders(0).CurrentFolder(), "C:\\");
}

}  // namespace
}  // namespace tarnwell::settings
