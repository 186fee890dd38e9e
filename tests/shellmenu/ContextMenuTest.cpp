#include "MenuFixture.h"
#include "fakes/TestFile.h"

namespace tarnwell::shellmenu {
namespace {

using namespace std::string_literals;

using workspace::Texts;

TEST_F(ContextMenuTest, StandsAboveThePlatformsEntriesAtTheClick) {
  Space.Settings.Bookmarks[1].DisplayPath = "C:\\R&D\n";
  Popups.OnTrack = [this] {
    EXPECT_TRUE(Platform.Watches.Watched().empty());
    EXPECT_EQ(Picture(), "");
    EXPECT_TRUE(Space.Lists[100].Rows().StateOf(Row(100, "b.txt")).IsTarget);
  };
  Space.Lists[100].Left = 1500;
  Space.Lists[100].Top = 700;
  Click(100, "b.txt");
  Popups.OnTrack = {};
  EXPECT_TRUE(IsOver());
  EXPECT_EQ(Popups.Place, std::pair(101, 48));  // 15 and 30 twips within the list
  EXPECT_EQ(Popups.Text(), fakes::ReadTestFile("shellmenu/menu.txt"));
  EXPECT_EQ(Popups.Find("Default")->Picture + Popups.Find("Dark Green")->Picture, "pic_cforest");

  // The folder itself is neither renamed nor duplicated, and has no "Access" whatever it is called.
  Platform.Files.AddFolder("C:\\XXXXX");
  for (const char* folder : {"C:\\Data\\", "C:\\XXXXX"}) {
    Menu.ShowShellMenu(0, 0, folder, MenuMode::Show);
    EXPECT_EQ(Popups.Find("Rename") == nullptr, std::string_view(folder).ends_with('\\'));
    EXPECT_EQ(Popups.Find("Access"), nullptr);
  }
}

TEST_F(ContextMenuTest, IsForWhatIsClickedAndSelected) {
  Select({"a.txt", "c.txt"});
  const auto asked = [this](const std::string& clicked, const std::string& path = "") {
    Platform.ItemMenus.Asked = "nothing";
    Menu.ShowForClick(0, 0, clicked, path);
    EXPECT_TRUE(IsOver());
    return Platform.ItemMenus.Asked;
  };
  EXPECT_EQ(asked(""), "C:\\Data\\: a.txt c.txt");
  EXPECT_EQ(asked("C:\\Data\\c.txt"), "C:\\Data\\: c.txt a.txt");
  EXPECT_EQ(asked("C:\\Data\\Sub\\"), "C:\\Data\\: Sub a.txt c.txt");
  EXPECT_EQ(asked("C:\\Other\\o"), "C:\\Other\\: o a.txt c.txt");  // they count as of one folder
  EXPECT_EQ(asked("C:\\"), "C:\\:");
  EXPECT_EQ(Popups.Find("Duplicate"), nullptr);
  EXPECT_EQ(asked("C:\\Data\\a.txt", "C:\\Other"), "C:\\: Other");
  Platform.Files.AddFile("\\\\server\\share\\x");
  EXPECT_EQ(asked("*|\\\\server\\share\\x"), "\\\\server\\share\\: x a.txt c.txt");
  EXPECT_EQ(asked("*|\\\\server") + asked("", "\\\\server\\"), "nothingnothing");
  Select({});
  EXPECT_EQ(asked(""), "nothing");
  EXPECT_TRUE(Messages.Texts.empty());

  // What has gone is told of; without the first there is no menu.
  Select({"a.txt", "c.txt"});
  Platform.Files.Remove("C:\\Data\\c.txt");
  EXPECT_EQ(asked(""), "C:\\Data\\: a.txt");
  EXPECT_EQ(asked("C:\\Data\\c.txt"), "nothing");
  const std::string error = "Error: &H2, No such file or directory";
  EXPECT_EQ(Messages.Texts, (Texts{error, error}));

  // One message for the first that has gone, and one for all the others.
  Messages.Texts.clear();
  for (char name = 'd'; name <= 'p'; ++name) Platform.Files.AddFile("C:\\Data\\"s + name + "\n");
  Space.Lists[100].RefreshList();
  Space.Lists[100].SelectAll();
  for (char name = 'd'; name <= 'p'; ++name) Platform.Files.Remove("C:\\Data\\"s + name + "\n");
  EXPECT_EQ(asked("C:\\Data\\a.txt"), "C:\\Data\\: a.txt Sub b.txt");
  ASSERT_EQ(Messages.Texts.size(), 2U);
  EXPECT_TRUE(Messages.Texts[1].starts_with("12 further items could not be found"))
      << Messages.Texts[1];
  EXPECT_NE(Messages.Texts[1].find("     e\u240A\r\n     f\u240A\r\n"), std::string::npos);
  EXPECT_TRUE(Messages.Texts[1].ends_with("     n\u240A\r\n     ..."));
}

TEST_F(ContextMenuTest, GivesUpAt30000Items) {
  for (int number = 1; number < 30000; ++number) {
    Platform.Files.AddFile("D:\\many\\" + std::to_string(number));
  }
  std::string folder = "D:\\many";
  Space.Lists[101].LoadFolderContents(folder, true);
  Space.CurrentList = 101;
  Space.Lists[101].SelectAll();
  for (const char* clicked : {"D:\\many\\7", "C:\\Data\\a.txt"}) {  // that is one more
    Menu.ShowForClick(0, 0, clicked, "");
    EXPECT_EQ(Popups.Tracked, 1);
  }
  EXPECT_TRUE(IsOver());
  ASSERT_EQ(Messages.Texts.size(), 1U);
  EXPECT_TRUE(Messages.Texts[0].starts_with("Unless you have 30000 files or objects"));
}

TEST(ContextMenuOnMountsTest, KnowsDrivesByTheirNames) {
  MenuRun run(base::PathSyntax::Posix(), "/box/Data");
  run.Platform.Files.AddFolder("/mnt/disk");
  run.Platform.Drives.Volumes.push_back({"/mnt/disk", "Disk"});
  run.Space.Lists[100].SelectAll();
  for (const auto& [clicked, asked] :
       {std::pair{"/", "/:"}, {"/mnt/disk", "/mnt/: disk"}, {"/mnt", "/: mnt"}}) {
    run.Space.Lists[100].SelectAll(std::string_view(clicked) == "/mnt" ? "none" : "");
    run.Menu.ShowForClick(0, 0, clicked, "");
    EXPECT_EQ(run.Platform.ItemMenus.Asked, asked);
    EXPECT_EQ(run.Popups.Find("Rename") != nullptr, std::string_view(clicked) == "/mnt");
  }
  for (const auto& [folder, asked] : {std::pair{"/", "/:"}, {"/box/Data", "/box/: Data"}}) {
    run.Space.Lists[100].SetCurrentFolder(folder);
    run.Menu.ShowShellMenu(0, 0, "", MenuMode::Paste);
    EXPECT_EQ(run.Platform.ItemMenus.Asked, asked);
  }
  EXPECT_EQ(run.Platform.ItemMenus.Invoked, (Texts{"Paste", "Paste"}));
}

TEST_F(ContextMenuTest, KeysCarryOutThePlatformsEntryUnseen) {
  Select({"a.txt", "b.txt"});
  const auto invoked = [this](MenuMode mode) {
    Menu.ShowShellMenu(0, 0, "", mode);
    EXPECT_TRUE(IsOver());
    return std::exchange(Platform.ItemMenus.Invoked, {});
  };
  Menu.ShowForClick(0, 0, "C:\\Data\\c.txt", "");
  Popups.Tracked = 0;
  EXPECT_EQ(invoked(MenuMode::Copy), Texts{"Copy"});
  EXPECT_EQ(Platform.ItemMenus.Asked, "C:\\Data\\: a.txt b.txt");  // without the item clicked then
  EXPECT_EQ(invoked(MenuMode::Cut).front() + invoked(MenuMode::Delete).front(), "CutDelete");
  EXPECT_EQ(invoked(MenuMode::Paste), Texts{"Paste"});
  EXPECT_EQ(Platform.ItemMenus.Asked, "C:\\: Data");

  // The lower of two, in this spelling alone.
  Platform.ItemMenus.Captions = {"Copy", "C&o&py", "&copy"};
  Menu.ShowShellMenu(0, 0, "", MenuMode::Copy);
  EXPECT_EQ(Platform.ItemMenus.Offsets, std::vector<int>{1});
  Platform.ItemMenus.Invoked.clear();
  Platform.ItemMenus.Captions = {"&Kopieren", "copy", "Copy as path", ""};
  EXPECT_EQ(invoked(MenuMode::Copy), Texts{});
  EXPECT_EQ(Popups.Tracked, 0);

  // An application that happens to be called as one of the program's own entries.
  Platform.ItemMenus.Captions = {"> Orange "};
  Choose("a.txt", "Orange ");
  EXPECT_EQ(Platform.ItemMenus.Invoked, Texts{"Orange "});
  Platform.ItemMenus.Captions = {"Duplicate "};
  Choose("a.txt", "Duplicate ");
  EXPECT_EQ(Platform.ItemMenus.Invoked, Texts{"Orange "});
}

TEST_F(ContextMenuTest, LeavesNothingBehindOnAnyWayOut) {
  const auto shows = [this] {
    Popups.Tracked = 0;
    Choose("a.txt", "");
    EXPECT_TRUE(IsOver());
    return Popups.Tracked == 1;
  };
  for (const int fault : {0, 1, 2, 3}) {
    Platform.ItemMenus.Refuses = fault == 1;
    Popups.Refuses = fault == 2;
    Platform.ItemMenus.Fault = {fault == 3 ? 5 : 0, "no"};
    EXPECT_EQ(shows(), fault == 0);
  }
  Platform.ItemMenus.Fault = {};
  EXPECT_TRUE(Messages.Texts.empty());

  // An entry that cannot be added is told of, and the others are there.
  Popups.Refused = "Bookmarks";
  Choose("a.txt", "New Folder");
  EXPECT_EQ(Messages.Texts,
            (Texts{"A custom menu item could not be added. Please contact the makers of Tarnwell "
                   "for a patch."}));
  EXPECT_NE(Popups.Find("Colour Code"), nullptr);
  EXPECT_EQ(Dialogs, Texts{"popNewFolder"});
  Popups.Refused = "&Copy";
  Menu.ShowShellMenu(0, 0, "", MenuMode::Copy);
  EXPECT_TRUE(Platform.ItemMenus.Invoked.empty());
  Popups.Refused.clear();

  // Also when the platform's work or a command breaks off.
  Platform.ItemMenus.OnInvoke = [] { throw std::runtime_error("broken"); };
  EXPECT_ANY_THROW(Choose("a.txt", "Open"));
  EXPECT_TRUE(IsOver());
  Messages.Texts.clear();
  CommandLine = [] { throw std::runtime_error("broken"); };
  Choose("a.txt", "Command Line");
  EXPECT_TRUE(IsOver());
  EXPECT_TRUE(Messages.Texts.empty());
  Space.CurrentList = lister::NoList;
  Menu.ShowShellMenu(0, 0, "", MenuMode::Copy);
}

}  // namespace
}  // namespace tarnwell::shellmenu
