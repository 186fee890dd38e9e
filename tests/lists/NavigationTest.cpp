#include "TestLists.h"

namespace tarnwell::lists {
namespace {

class NavigationTest : public testing::Test, public TestLists {
 protected:
  std::string Caption(int pane) {
    return Space.Form.Menus["mnuPane" + std::to_string(pane)].Caption;
  }
  std::string ToolTip(int pane) {
    return Space.Form.Toolbar1["pane" + std::to_string(pane)].ToolTip;
  }
  const std::string Name = "r&d " + std::string(60, 'n');
};

TEST_F(NavigationTest, LoadsThePanesFolderAndShowsItCutAndInCapitals) {
  Connected = false;
  SetUpPane(0, "D:\\" + Name);
  Space.Form.Menus["mnuSystem"].Checked = true;
  Nav.LoadFolders(0);
  const std::string shown = "D:\\..." + std::string(43, 'N') + "\\";
  EXPECT_EQ(Caption(0) + ToolTip(0), "Show Pane &1 - " + shown + shown);
  EXPECT_EQ(CutPath(shown.substr(1)), shown.substr(1));  // 49 are few enough
  EXPECT_TRUE(Pane(0).DriveLoaded && Pane(0).CurrentPath == "D:\\" + Name + "\\");
  EXPECT_TRUE(Space.Lists[0].ShowSystem && Space.Lists[100].ShowSystem);
  EXPECT_FALSE(Space.Lists[0].ShowHidden || Space.Lists[100].ShowHidden);
}

TEST_F(NavigationTest, FallsBackToTheDefaultDriveAndNamesWhatIsLost) {
  for (const char* drive : {"X", "D", "no drive at all"}) {
    SetUpPane(0, "D:\\gone");
    Platform.Files.Remove("D:\\gone");
    Pane(0).InitialDrive = drive;
    Nav.LoadFolders(0);
    EXPECT_EQ(Space.Form.TitleBar[0].Text, "C:\\");
    Space.Lists[100].SelectAll();  // which has something to tell as well
    const std::string told = Space.Lists[100].Shown().Status;
    const auto nearest = told.find("; the nearest folder that can is D:\\. ");
    EXPECT_EQ(nearest != std::string::npos, *drive == 'D') << told;
    EXPECT_TRUE(told.starts_with(drive + std::string(*drive == 'D' ? ":\\gone" : ":\\") +
                                 " cannot be opened"));
  }
}

TEST_F(NavigationTest, LeadsFromWhatWasFoundBackToTheFolder) {
  Platform.Files.AddFile("C:\\box\\sub\\deep\\f");
  OpenPane(0, "C:\\box\\sub");
  lister::ListerControl& files = Space.Lists[100];
  lister::ListerControl& folders = Space.Lists[0];
  const auto click = [&] {
    const lister::RowId row = folders.Rows().CurrentRow();
    lister::RowPointer at{row, 1, lister::RowPart::Item, {1, 0, 15, 30}};
    folders.Input().MouseDown(at);
    folders.Input().MouseUp(at);
  };
  for (const auto& leave : std::vector<std::function<void()>>{
           click, [&] { folders.Rows().Activate(folders.Rows().CurrentRow()); },
           [&] { Nav.MoveFocusUpOneFolder(100); },
           [&] { Nav.OpenChildFolder(100, "C:\\box\\sub", "C:\\box"); }}) {
    files.ShowFound("C:\\box");
    files.AddFound({{"sub\\deep\\f"}});
    folders.RefreshList();
    files.RefreshList();
    EXPECT_EQ(files.ShowsFound() ? Space.Form.TitleBar[0].Text : "", "C:\\box\\sub\\");
    leave();
    EXPECT_EQ(files.ShowsFound() ? "" : files.CurrentFolder(), "C:\\box\\sub");
    EXPECT_EQ(Row(100, "f"), lister::NoRow);
  }
}

TEST(NavigationOnMountsTest, GoesUpToTheMountPointAndNoFarther) {
  TestLists run(std::make_shared<fakes::FakePlatform>(base::PathSyntax::Posix()));
  run.Platform.Drives.Volumes.push_back({"/mnt/disk", "Disk"});
  run.SetUpPane(0, "/mnt/disk/a");
  lister::ListerControl& folders = run.Space.Lists.Folders(0);
  folders.SetDriveFolder(run.Pane(0).InitialDrive = "/mnt/disk", "/mnt/disk/a");
  run.Nav.LoadFolders(0);
  run.Nav.MoveFocusUpOneFolder(100);
  run.Nav.MoveFocusUpOneFolder(100);
  EXPECT_EQ(run.Space.Form.TitleBar[0].Text, "/mnt/disk/");
  run.Nav.OpenOnDrive(100, "/", "/mnt");
  EXPECT_EQ(folders.InitialDrive() + " " + run.Space.Form.TitleBar[0].Text, "/ /mnt/");
  run.Nav.OpenOnDrive(0, "/mnt/disk", "/mnt/disk/a");
  EXPECT_EQ(folders.InitialDrive() + " " + run.Space.Form.TitleBar[0].Text,
            "/mnt/disk /mnt/disk/a/");
}

TEST_F(NavigationTest, HandsAFolderToTheFileListAndShowsItEverywhere) {
  SetUpPane(1, "C:\\" + Name);
  Platform.Files.AddFile("C:\\" + Name + "\\note.txt");
  Space.Form.cboCommand.Text = "dir";
  Nav.LoadFolders(1);
  const std::string cut = "C:\\..." + std::string(43, 'n') + "\\";
  EXPECT_EQ(Space.Form.TitleBar[1].Text, "C:\\" + Name + "\\");
  EXPECT_EQ(Caption(1), "Show Pane &2 - C:\\r&&d " + std::string(60, 'n') + "\\");
  EXPECT_EQ(ToolTip(1), cut);
  EXPECT_EQ(Space.Form.cboCommand.Text + Space.Form.txtCurrentPath.Text, cut);
  EXPECT_NE(Row(101, "note.txt"), lister::NoRow);

  Pane(1).CurrentPath = "*|Trash";  // no folder on disk
  Nav.UpdateChildPane(1);
  EXPECT_EQ(Space.Form.TitleBar[1].Text, "Trash\\");
  EXPECT_EQ(Space.Lists.Files(1).ParentFolder, "*|Trash\\");
  Pane(1).CurrentPath = "C:\\";
  for (const lister::ListId list : workspace::Ids{101, 4, -1, 999}) Nav.UpdateChildPane(list);
  EXPECT_EQ(Space.Form.TitleBar[1].Text, "Trash\\");
}

TEST_F(NavigationTest, LetsTheNewestFolderWinWhenHandOversNest) {
  for (const std::string folder : {"C:\\A", "C:\\B", "C:\\Other"}) {
    for (const char* file : {"\\1", "\\2", "\\3"}) Platform.Files.AddFile(folder + file);
  }
  for (const int pane : {0, 1}) OpenPane(pane, "C:\\");
  lister::ListerControl& files = Space.Lists.Files(0);
  int nested = 0;
  // The user's choices, while the file list is still at work on A.
  const std::function<void()> choose = [&] {
    if (files.CurrentFolder() != "C:\\A") return Platform.Pump.Post(choose);
    EXPECT_NE(files.ParentFolder, "C:\\A\\");  // its hand-over is under way
    Space.Lists.Folders(1).OpenFolder(0, "C:\\Other");
    if (++nested == 1) Space.Lists.Folders(0).OpenFolder(0, "C:\\B");
  };
  // A folder of another pane is no newer one of this pane.
  for (const std::string newest : {"C:\\B", "C:\\A"}) {
    Platform.Pump.Post(choose);
    Platform.Clock.TickStep = 60;
    Space.Lists.Folders(0).OpenFolder(0, "C:\\A");
    Platform.Clock.TickStep = 0;
    EXPECT_EQ(files.ParentFolder, newest + "\\");
    EXPECT_EQ(Space.Form.TitleBar[0].Text, newest + "\\");
    EXPECT_EQ(files.Rows().PathOf(Row(100, "2")), newest + "\\2");
    EXPECT_EQ(Space.Lists.Files(1).ParentFolder, "C:\\Other\\");
  }
  EXPECT_EQ(nested, 2);
}

TEST_F(NavigationTest, KeepsTheWayOfEachPaneAndGoesBackOnIt) {
  for (const char* folder : {"C:\\A\\B", "D:\\E"}) Platform.Files.AddFolder(folder);
  for (const int pane : {0, 1}) OpenPane(pane, "C:\\");
  const workspace::PaneHistory& way = Space.Histories[0];
  const auto go = [&](const char* folder) { Space.Lists[100].GoToFolder(folder); };
  const auto step = [&](int by) {
    Nav.OpenFromHistory(0, way.Here + static_cast<std::size_t>(by));
    return Space.Form.TitleBar[0].Text;
  };
  for (const char* folder : {"C:\\A\\B", "C:\\A", "D:\\E", "C:\\A"}) go(folder);
  EXPECT_EQ(step(1), "C:\\A\\");
  EXPECT_EQ(step(-1), "D:\\E\\");  // on another drive
  EXPECT_EQ(step(-2), "C:\\A\\B\\");
  Nav.OpenFromHistory(0, 4);
  // A folder that has gone is told of and left out, and so is what then stands there twice.
  Platform.Files.Remove("D:\\E");
  EXPECT_EQ(step(-1), "C:\\A\\");
  EXPECT_TRUE(Messages.Texts.size() == 1 && Messages.Texts[0].find("D:\\E") != std::string::npos);
  EXPECT_EQ(way.Folders, (workspace::Texts{"C:\\", "C:\\A\\B", "C:\\A"}));
  EXPECT_EQ(step(-2), "C:\\");
  EXPECT_EQ(step(-1), "C:\\");
  go("C:\\A");  // in place of what lay ahead
  EXPECT_EQ(way.Folders, (workspace::Texts{"C:\\", "C:\\A"}));
  for (int i = 0; i < 40; ++i) go(i % 2 == 0 ? "C:\\" : "C:\\A");
  EXPECT_EQ(way.Folders.size(), workspace::MostInHistory);
  EXPECT_EQ(step(-29), "C:\\");
  EXPECT_EQ(Space.Histories[1].Folders, workspace::Texts{"C:\\"});
}

}  // namespace
}  // namespace tarnwell::lists
