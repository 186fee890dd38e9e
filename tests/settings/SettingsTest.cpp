#include "settings/TestProgram.h"

namespace tarnwell::settings {
namespace {

using workspace::Texts;

class SettingsTest : public testing::Test, public TestProgram {
 protected:
  // Reads a file beside this one as the settings file; bad records end where they stand.
  void Read(const std::string& file) {
    ReadMarkers markers;
    Platform.Files.AddFile(Path, fakes::ReadTestFile("settings/" + file));
    File.Clear();
    File.ReadSettingsFile(GlobalScope, markers);
  }
};

// In the file nothing has its default.
TEST_F(SettingsTest, WritesWhatItReadInItsOrder) {
  Platform.Files.AddFolder("D:\\Work\\Deep");
  const std::string content = fakes::ReadTestFile("settings/user.usr");
  StartWith(content);
  const workspace::ProgramSettings& settings = Space.Settings;
  EXPECT_TRUE(settings.SkipWin9XWarningPanes && settings.UseEnhancedMode &&
              settings.ShowFolderIcons && !settings.ShowFileIcons && settings.FileCountMax == -5 &&
              settings.OnlineVersion == 1.25 && settings.FolderFileListing == "0");
  EXPECT_TRUE(Pane(4).PercentWidth == .8F && Pane(4).PercentWidthH == 1.5e7F &&
              Pane(4).Height == 2004 && Pane(4).WidthH == 3004 && Pane(4).Left == -4);
  EXPECT_EQ(Space.Lists.Files(1).CurrentFolder(), "D:\\Work\\Deep");
  EXPECT_TRUE(Space.Lists.Files(1).ShowHidden);
  forms::Toolbar& buttons = Space.Form.Toolbar1;
  EXPECT_TRUE(buttons["layoutvertical"].Pressed && !buttons["layouthorizontal"].Pressed);
  EXPECT_TRUE(buttons["compare_date"].Pressed && !buttons["compare_size"].Pressed);
  EXPECT_EQ(Space.Form.ImageList1.Key(Space.Form.Menus["mnuOrientation"].Image), "layoutvertical");
  Space.Lists.Files(1).AddSortKey(1, "sSize", "des");  // the file list always starts by name
  File.SaveSettings();
  EXPECT_EQ(Platform.Files.At(Path).Content, content);
}

TEST_F(SettingsTest, KeepsTheBlockOfAHiddenPaneOverManyRuns) {
  const std::string content = fakes::ReadTestFile("settings/hidden.usr");
  const std::string kept = content.substr(content.find("\"listtype\""));  // its first line
  Platform.Files.AddFile(Path, content);
  for (int runs = 0; runs < 3; ++runs) {
    TestProgram run(Shared);
    run.Start();
    run.File.SaveSettings();
    const std::string& saved = Platform.Files.At(Path).Content;
    EXPECT_EQ(saved.substr(saved.size() - kept.size()), kept) << runs;
    EXPECT_EQ(saved.find("\"Future\""), std::string::npos);
  }
  Start();
  Panes.ChangePanes(3);  // shown at last, and so they take effect
  EXPECT_EQ(Space.Lists.Folders(3).CurrentFolder(), "D:\\");
  EXPECT_EQ(base::ToInt32(Space.Lists.Folders(3).HeadingProperty(0, "Width")), 1200);
}

TEST_F(SettingsTest, StartsWithTheDefaultsWhereItCannotRead) {
  Start();
  Space.Settings.FileCountMax = 99;
  File.SaveSettings();
  Platform.Files.At(Path).ReadFault = fakes::MemoryFileSystem::Denied();
  TestProgram next(Shared);
  EXPECT_TRUE(next.Start().FirstTips);
  EXPECT_EQ(next.Space.Settings.FileCountMax, 50);
  EXPECT_TRUE(next.Messages.Texts.empty());

  // What it could not read is not lost when it saves, nor what it could not read before.
  Platform.Files.AddFile(Path + ".unread", "older");
  next.File.SaveSettings();
  const std::string aside = Platform.Files.At(Path + ".unread2").Content;
  EXPECT_NE(aside.find("\"FileCountMax\",99,"), std::string::npos);
  EXPECT_EQ(Platform.Files.At(Path + ".unread").Content, "older");
  next.File.SaveSettings();  // its own file stays
  EXPECT_FALSE(Platform.Files.Exists(Path + ".unread3"));
}

TEST_F(SettingsTest, SkipsRecordsThatNameNothingAndEndsBadOnesWhereTheyStand) {
  Read("bad.usr");
  for (std::size_t slot = 0; slot < 10; ++slot) {
    EXPECT_EQ(Space.Settings.Bookmarks[slot].Path, slot == 9 ? "nine" : "(empty)");
  }
  EXPECT_TRUE(Pane(3).InitialDrive == "C" && Pane(4).InitialDrive == "D");
  EXPECT_EQ(Pane(2).Status, workspace::Closed);
  EXPECT_EQ(PressedPanes(), "1");
  EXPECT_TRUE(Pane(1).Order == 8 && Pane(2).Order == 0);
  EXPECT_TRUE(Pane(0).PercentWidth == .25F && Pane(1).PercentWidth == -1 &&
              Pane(2).PercentWidth == 0 && Pane(3).PercentWidth == 0);
  EXPECT_TRUE(Pane(1).Left == 0 && Pane(4).HeightH == 5);
}

// A record reaches the lists of its own pane alone, each key the kind of list that it is meant for.
TEST_F(SettingsTest, KeepsTheScopesApart) {
  Space.Lists.Create(1);
  Read("scopes.usr");
  const lister::ListerControl &folders = Space.Lists.Folders(1), &files = Space.Lists.Files(1);
  EXPECT_EQ(files.ListMode, 0);  // nothing yet: these keys are no settings of the program
  Space.Settings.FileCountMax = 51;
  File.ReplayPaneSettings(1);
  EXPECT_EQ(Space.Settings.FileCountMax, 51);
  EXPECT_EQ(base::ToInt32(files.HeadingProperty(2, "Width")), 1500);
  EXPECT_NE(base::ToInt32(Space.Lists.Folders(0).HeadingProperty(2, "Width")), 900);
  for (const auto* list : {&folders, &files}) {
    std::string key, direction;
    EXPECT_TRUE(list->GetSortKey(0, key, direction));
    EXPECT_EQ(key, list == &folders ? "sSize" : "sName");
  }
  EXPECT_EQ((Texts{folders.ExpandedFolder(0), files.ExpandedFolder(0)}), (Texts{"C:\\Data", ""}));
  EXPECT_EQ(folders.DriveFolder("C"), "C:\\Data");
  EXPECT_TRUE(folders.ListType == 0 && files.ListType == 8 && files.ListMode == 4);
}

TEST_F(SettingsTest, StartsWithTheDefaultsWhereThereIsNoFile) {
  const ReadMarkers markers = Start();
  EXPECT_TRUE(!markers.PositionFound && markers.FirstArrangement && markers.FirstTips);
  EXPECT_EQ(PressedPanes(), "01");
  EXPECT_TRUE(Space.InitialActivePane == 0 && Space.PreviousActivePane == 0);
  File.SaveSettings();
  const std::string defaults = fakes::ReadTestFile("settings/defaults.usr");
  EXPECT_EQ(Platform.Files.At(Path).Content.substr(0, defaults.size()), defaults);
}

TEST_F(SettingsTest, PlacesTheWindowAndClearsTheFirstRunFlagsWithAnyRecord) {
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

TEST_F(SettingsTest, SetsUpPaneZeroAndTheOpenPanes) {
  using workspace::Ids;
  StartWith("\"Status\",1,5,0,1,0\r\n\"InitialDrive\",2,\"D\",0,0,0\r\n");
  EXPECT_EQ((Ids{Space.OpenPaneCount, Space.InitialActivePane, Space.CurrentList}), (Ids{2, 2, 2}));
  EXPECT_TRUE(Pane(0).Initialized && !Pane(1).Initialized && Pane(2).Initialized);
  EXPECT_EQ(Space.Lists.Folders(2).CurrentFolder(), "D:\\");
  EXPECT_EQ(Texts(Status.begin() + 4, Status.begin() + 6),
            (Texts{"loading pane 3...", "loading pane 5..."}));

  TestProgram closed(Shared);
  closed.StartWith("\"Status\",1,1,1,1,1\r\n");
  // There is no window without a pane.
  EXPECT_EQ((Ids{closed.Space.OpenPaneCount, closed.Space.CurrentList}), (Ids{1, 0}));
  EXPECT_TRUE(closed.Pane(0).IsOpen() && closed.Pane(0).DriveLoaded);
  EXPECT_EQ(closed.PressedPanes(), "0");
}

TEST_F(SettingsTest, BearsThousandsOfExpandedFolders) {
  std::string folders;
  for (int i = 0; i < 30000; ++i) {
    folders += "\"Expanded\",0,\"C:\\gone " + std::to_string(i) + "\",0,0,0\r\n";
  }
  StartWith(folders);
  EXPECT_EQ(Space.Lists.Folders(0).ExpandedFolder(0), "C:\\");
}

TEST_F(SettingsTest, ASkinGivesEveryPartItsColour) {
  Start();
  std::string content = "\"Version\",400000042,\"Tarnwell Skin\",0,0,0\r\n";
  int colour = 100;
  for (const std::string_view key : SkinColourKeys) {
    content += "\"" + std::string(key) + "\"," + std::to_string(colour++) + ",0,0,0,0\r\n";
  }
  AddSkin("mine.TWK", content);
  CurrentSkin.LoadSkin("Mine");
  const workspace::MainForm& form = Space.Form;
  using Numbers = std::vector<base::Colour>;
  EXPECT_EQ((Numbers{form.BackColour, form.txtCurrentPath.ForeColour, form.cboCommand.BackColour,
                     form.MenuBackColour, form.lblNoRoom[104].BackColour,
                     form.TitleBar[0].ForeColour, form.TitleBar[1].BackColour}),
            (Numbers{100, 122, 123, 125, 120, 115, 107}));
  Panes.ChangePanes(3);  // a pane that is set up later gets them too
  for (const lister::ListId list : workspace::Ids{0, 101, 3, 103}) {
    const lister::ListColours& own = Space.Lists[list].Shown().Settings.Colours;
    EXPECT_EQ((Numbers{own.ListBackground, own.ActiveHeadingText, own.InActiveListOutline,
                       own.TextSecondary, own.DriveList, own.MinorToolbar}),
              (Numbers{101, 116, 126, 127, 110, 104}));
  }
}

TEST_F(SettingsTest, AShortOrDamagedSkinIsLoadedOverTheColoursThatAre) {
  Start();
  Colours[ColorListText] = 1;
  Colours[ColorProgramBackground] = 3;
  AddSkin("odd.twk", fakes::ReadTestFile("settings/odd.twk"));
  CurrentSkin.LoadSkin("ODD");
  EXPECT_TRUE(Colours[ColorListText] == 1 && Colours[ColorDriveText] == base::White &&
              Colours[ColorInActiveListOutline] == 9 && Colours[ColorMainMenu] == 0);
  EXPECT_EQ(Space.Settings.SkinName, "inside");
  EXPECT_TRUE(Space.Form.ResizeEnabled && Space.Form.Left == 450);

  Colours[ColorProgramBackground] = 5;
  AddSkin("locked.twk", "").ReadFault = fakes::MemoryFileSystem::Denied();
  for (const char* name : {"NONE", "LOCKED", "", "..\\USER"}) {
    Messages.Texts.clear();
    CurrentSkin.LoadSkin(name);
    ASSERT_EQ(Messages.Texts.size(), 1U) << name;
    EXPECT_TRUE(
        Messages.Texts[0].starts_with("The last used 'skin' could not be found.\r\n\r\nIt "));
    EXPECT_EQ(Space.Form.BackColour, 3);
  }
  CurrentSkin.LoadSkin("earl grey");  // has no colour
  EXPECT_EQ(Space.Form.BackColour, 5);
}

}  // namespace
}  // namespace tarnwell::settings
