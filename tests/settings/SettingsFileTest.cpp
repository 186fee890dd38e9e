#include <algorithm>

#include "TestProgram.h"

namespace tarnwell::settings {
namespace {

class SettingsFileTest : public testing::Test, public TestProgram {};

// Nothing has its default. A line end is a comma to the reader, and the other way round.
const char* const program =
    R"end("ProgramPosition",300,450,9000,6000,0,"FolderFileListing",0,0,0,0,0
"SkipWin9XWarningPanes",#TRUE#,0,0,0,0,"SkinName","EARL GREY",0,0,0,0,"Layout",0,0,0,0,0
"CompareMode",2,0,0,0,0,"UseEnhancedMode",#TRUE#,0,0,0,0,"ShowCommandLine",#TRUE#,0,0,0,0
"ShowColor",#TRUE#,0,0,0,0,"ShowFileIcons",#FALSE#,0,0,0,0,"ShowFolderIcons",#TRUE#,0,0,0,0
"FileCountMax",-5,0,0,0,0,"MinimizeToTaskBar",#FALSE#,0,0,0,0
"IsFirstColorCodingOverMax",#FALSE#,0,0,0,0,"FirstColorEver",#FALSE#,0,0,0,0
"ShowCommandLine",#TRUE#,0,0,0,0,"LayoutAutoExpand",#FALSE#,0,0,0,0,"OnlineVersion",1.25,0,0,0,0
"PercentWidth",0,.2,.4,.6,.8,"PercentHeight",-.25,-.25,-.25,-.25,-.25
"PercentWidthH",1.5E+07,1.5E+07,1.5E+07,1.5E+07,1.5E+07
"PercentHeightH",.3333333,.3333333,.3333333,.3333333,.3333333
"Status",0,0,1,1,1,"Order",5,4,3,2,1,"ControlGroup",4,3,2,1,0,"Width",1000,1001,1002,1003,1004
"Height",2000,2001,2002,2003,2004,"WidthH",3000,3001,3002,3003,3004
"HeightH",100000,100001,100002,100003,100004,"Left",0,-1,-2,-3,-4,"ShowHidden",#TRUE#,0,0,0,0
"ShowSystem",#FALSE#,0,0,0,0,"BookMark",0,"C:\a, b",0,0,0,"BookMark",1,"(empty)",0,0,0
"BookMark",2,"(empty)",0,0,0,"BookMark",3,"(empty)",0,0,0,"BookMark",4,"(empty)",0,0,0
"BookMark",5,"(empty)",0,0,0,"BookMark",6,"(empty)",0,0,0,"BookMark",7,"(empty)",0,0,0
"BookMark",8,"(empty)",0,0,0,"BookMark",9,"\\server\share",0,0,0,"ListType",100,2,0,0,0
)end";

const char* const block = R"end("ListType",101,2,0,0,0,"InitialDrive",1,"D",0,0,0
"ListMode",101,2,0,0,0,"Expanded",1,"C:\",0,0,0,"Expanded",1,"D:\",0,0,0
"Expanded",1,"D:\Work",0,0,0,"Active",1,"C:\","C:\",0,0,"Active",1,"D:\","D:\Work\Deep",0,0
)end";

TEST_F(SettingsFileTest, WritesWhatItReadInItsOrder) {
  Platform.Files.AddFolder("D:\\Work\\Deep");
  StartWith(program + std::string(block) +
            "\"Heading\",101,3,\"Width\",1200,0\r\n\"Heading\",101,3,\"active\",#FALSE#,0\r\n"
            "\"SORTING\",1,0,\"sName\",\"des\",0\r\n");
  const workspace::ProgramSettings& settings = Space.Settings;
  EXPECT_TRUE(settings.SkipWin9XWarningPanes && settings.UseEnhancedMode &&
              settings.ShowFolderIcons && !settings.ShowFileIcons && settings.FileCountMax == -5 &&
              settings.OnlineVersion == 1.25 && settings.FolderFileListing == "0");
  EXPECT_TRUE(Pane(4).PercentWidth == .8F && Pane(4).PercentWidthH == 1.5e7F &&
              Pane(4).Height == 2004 && Pane(4).WidthH == 3004 && Pane(4).Left == -4);
  EXPECT_EQ(settings.Bookmarks[0].Path + settings.Bookmarks[9].Path, "C:\\a, b\\\\server\\share");
  EXPECT_EQ(Space.Lists.Files(1).CurrentFolder(), "D:\\Work\\Deep");
  EXPECT_TRUE(Space.Lists.Files(1).ShowHidden);
  forms::Toolbar& buttons = Space.Form.Toolbar1;
  EXPECT_TRUE(buttons["layoutvertical"].Pressed && !buttons["layouthorizontal"].Pressed);
  EXPECT_TRUE(buttons["compare_date"].Pressed && !buttons["compare_size"].Pressed);
  EXPECT_EQ(Space.Form.ImageList1.Key(Space.Form.Menus["mnuOrientation"].Image), "layoutvertical");
  EXPECT_GT(Switches.CompareCalls, 0);
  Space.Lists.Files(1).AddSortKey(1, "sSize", "des");

  const Texts lines = Saved();
  const auto middle = std::ranges::find(lines, "\"ListType\",101,2,0,0,0");
  ASSERT_EQ(lines.end() - middle, 8 + 154 + 3 + 1);
  const auto expectStart = [&](Texts::const_iterator at, std::string expected) {
    std::ranges::replace(expected, '\n', ',');
    std::string found;
    while (at != lines.end() && found.size() < expected.size()) found += *at++ + ",";
    EXPECT_EQ(found, expected);
  };
  expectStart(lines.begin(), program);
  expectStart(middle, block);
  const char* attributes[] = {"key", "Width", "Index", "active", "MenuName", "Caption", "ToolTip"};
  for (int at = 0; at < 154; ++at) {
    const std::string start = "\"Heading\"," + std::string(at < 77 ? "1" : "101") + "," +
                              std::to_string(at % 77 / 7) + ",\"" + attributes[at % 7] + "\",";
    EXPECT_TRUE(middle[8 + at].starts_with(start)) << middle[8 + at];
  }
  EXPECT_EQ(middle[8 + 77 + 22], "\"Heading\",101,3,\"Width\",1200,0");
  EXPECT_EQ(middle[8 + 77 + 24], "\"Heading\",101,3,\"active\",#FALSE#,0");
  // The file list always starts by name.
  EXPECT_EQ(Texts(lines.end() - 4, lines.end()),
            (Texts{"\"SORTING\",1,0,\"sName\",\"des\",0", "\"SORTING\",101,0,\"sName\",\"asc\",0",
                   "\"SORTING\",101,1,\"sSize\",\"des\",0", "\"End\",0,0,0,0,0"}));
}

TEST_F(SettingsFileTest, KeepsTheBlockOfAHiddenPaneOverManyRuns) {
  const Texts kept = {"\"listtype\",103,7,0,0,0",
                      "\"Heading\",3,0,\"Width\",1200.5,#TRUE#",
                      "\"SORTING\",103,0,\"sSize\",\"des\",0",
                      "\"Expanded\",3,\"D:\\x, y\",-.5,0,0",
                      "\"INITIALDRIVE\",3,\"D\",0,0,0",
                      "\"End\",0,0,0,0,0"};
  std::string content =
      "\"Future\",3,1,0,0,0\r\n\"Active\",word,\"a\",\"b\",0,0\r\n"
      "\"Heading\",203,0,\"Width\",1,0\r\n";
  for (const std::string& line : kept) content += line + "\r\n";
  Platform.Files.AddFile(Path, content);
  for (int runs = 0; runs < 3; ++runs) {
    TestProgram run(Shared);
    run.Start();
    const Texts lines = run.Saved();
    ASSERT_EQ(Texts(lines.end() - 6, lines.end()), kept) << runs;
    EXPECT_TRUE(lines.end()[-7].starts_with("\"SORTING\",101,"));
  }
  Start();
  Panes.ChangePanes(3);  // shown at last, and so they take effect
  EXPECT_EQ(Space.Lists.Files(3).ListType, 7);
  EXPECT_EQ(Space.Lists.Folders(3).CurrentFolder(), "D:\\");
  EXPECT_EQ(base::ToInt32(Space.Lists.Folders(3).HeadingProperty(0, "Width")), 1200);
}

TEST_F(SettingsFileTest, StartsWithTheDefaultsWhereItCannotRead) {
  Start();
  Space.Settings.FileCountMax = 99;
  Saved();
  Platform.Files.At(Path).ReadFault = fakes::MemoryFileSystem::Denied();
  TestProgram next(Shared);
  EXPECT_TRUE(next.Start().FirstTips);
  EXPECT_EQ(next.Space.Settings.FileCountMax, 50);
  EXPECT_TRUE(next.Messages.Texts.empty());

  // What it could not read is not lost when it saves, nor what it could not read before.
  Platform.Files.AddFile(Path + ".unread", "older");
  next.Saved();
  const std::string aside = Platform.Files.At(Path + ".unread2").Content;
  EXPECT_NE(aside.find("\"FileCountMax\",99,"), std::string::npos);
  EXPECT_EQ(Platform.Files.At(Path + ".unread").Content, "older");
  next.Saved();  // its own file stays
  EXPECT_FALSE(Platform.Files.Exists(Path + ".unread3"));
}

}  // namespace
}  // namespace tarnwell::settings
