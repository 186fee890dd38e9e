#include "fileops/frmRenameItems.h"
#include "fileops/popNewFolder.h"
#include "fileops/popRename.h"
#include "lister/list/ListInput.h"
#include "lists/TestLists.h"
#include "shellmenu/ShowShellMenu.h"
#include "shellmenu/TitleMenu.h"

namespace tarnwell::shellmenu {
namespace {

using namespace std::string_literals;

using workspace::Texts;

// Pane 1 shows the folder Data with the files a.txt, b.txt, c.txt and a folder, pane 2 the folder
// Other beside it with the file o.
struct MenuRun : lists::TestLists {
  explicit MenuRun(const base::PathSyntax& syntax = base::PathSyntax::Windows(),
                   const std::string& data = "C:\\Data")
      : TestLists(std::make_shared<fakes::FakePlatform>(syntax)) {
    const std::string other = syntax.Join(syntax.ParentOf(data), "Other");
    for (const char* file : {"a.txt", "b.txt", "c.txt"}) {
      Platform.Files.AddFile(syntax.Join(data, file));
    }
    Platform.Files.AddFile(syntax.Join(other, "o"));
    Platform.Files.AddFolder(syntax.Join(data, "Sub"));
    OpenPane(0, data);
    OpenPane(1, other);
    Space.CurrentList = Space.EnteredList = 100;
    Space.Form.MenuImages.DrawImages(true);
    Space.Form.MenuImages.TakeImages(Space.Form.ImageList1);
    Space.Form.MenuImages.Attach();
    Space.Form.Menus["mnuHidden"].Image = 0;
    Watched = Platform.Watches.Watched().size();
    OnContextMenu = [this](float x, float y, const std::string& clicked, const std::string& path) {
      Menu.ShowForClick(x, y, clicked, path);
    };
    Host.OnModal = [this](forms::Form& form) { Dialogs.push_back(form.Name()); };
  }

  std::string Picture() {
    return std::string(Space.Form.MenuImages.ImageOf(Space.Form.Menus["mnuHidden"]));
  }
  // The lists follow their folders, no row is marked, and menus have their pictures.
  bool IsOver() {
    bool marked = false;
    Space.ForEachList([&](lister::ListerControl& list) {
      for (int at = 0; at < list.Rows().ChildCount(lister::RootRow); ++at) {
        marked = marked || list.Rows().StateOf(list.Rows().Child(lister::RootRow, at)).IsTarget;
      }
    });
    return !marked && Platform.Watches.Watched().size() == Watched && !Picture().empty();
  }
  void Select(const std::vector<std::string>& names) {
    Space.Lists[100].SelectAll("none");
    for (const std::string& name : names) TestLists::Select(100, name);
  }
  void Click(lister::ListId list, const std::string& name) {
    const lister::RowId row = Row(list, name);
    const bool none = row == lister::NoRow;
    lister::ListerControl& control = Space.Lists[list];
    const lister::RowPointer at{row,
                                none ? 99 : control.Rows().PositionOf(row),
                                none ? lister::RowPart::None : lister::RowPart::Item,
                                {2, 0, 15, 30}};
    control.Input().MouseDown(at);
    control.Input().MouseUp(at);
  }
  void Choose(const std::string& name, const std::string& caption, lister::ListId list = 100) {
    Popups.Choice = caption;
    Click(list, name);
    Popups.Choice.clear();
  }

  fakes::FakePopupMenus& Popups = Platform.Popups;
  const base::PathSyntax& Syntax = Platform.Files.Syntax();
  std::vector<std::string> Dialogs;  // that were shown
  std::function<void()> CommandLine = [] {};
  std::string Undoable;
  std::vector<lister::ColouredItem> Coloured;  // last
  std::size_t Watched = 0;

  fileops::DialogFields Fields;
  fileops::NewFolder NewFolder{Space, Platform.Files, Platform.Operation, Host, Messages, Fields};
  fileops::RenameCommand Rename{Space, Platform.Files, Platform.Operation, Host, Messages, Fields};
  fileops::RenameItemsCommand RenameItems{
      Space,
      {Platform.Files, Platform.Operation, Platform.Clock, Platform.Forms, Host, Messages, {}}};
  fileops::DuplicateCommand Duplicate{Platform.Files, Platform.Operation, Platform.Clock, Host,
                                      Messages};
  fileops::FileOperations Operations{Space, Syntax, Platform.Operation, Nav, Messages, Fields};
  fileops::DeleteCommand Delete{
      Space,      Syntax, Platform.Operation,
      Operations, Nav,    Host,
      Messages,   Fields, [this] {
        return Menu.ShowShellMenu(0, 0, "", MenuMode::Delete); }};
  ContextMenuCommand Menu{
      Space,
      {Syntax, Platform.Drives, Platform.ItemMenus, Popups, Platform.Operation, Platform.Forms},
      Messages,
      {NewFolder, Rename, RenameItems, Duplicate, Operations, Delete, [this] { CommandLine(); },
       [this](const std::string& path) { Dialogs.push_back("compact " + path); },
       [this] { Dialogs.push_back(Undoable); }, [this] { return Undoable; },
       [this](const auto& items) { Coloured = items; }}};
};

class ContextMenuTest : public testing::Test, public MenuRun {};

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

TEST_F(ContextMenuTest, IsForWhatWasFoundInManyFolders) {
  lister::ListerControl& list = Space.Lists[100];
  list.ShowFound("C:\\");
  list.AddFound({{"Data\\a.txt"}, {"Other\\o"}, {"Data\\Sub", platform::ItemKind::Folder}});
  list.SelectAll();
  Choose("a.txt", "&Copy");
  EXPECT_EQ(Platform.ItemMenus.Asked, "C:\\: Data\\a.txt Data\\Sub Other\\o");
  Platform.ItemMenus.Asked.clear();
  Menu.ShowShellMenu(0, 0, "", MenuMode::Paste);  // not into what is selected
  EXPECT_EQ(Platform.ItemMenus.Asked, "");
  Select({"a.txt"});
  Host.OnModal = [](forms::Form& form) {
    auto* const dialog = dynamic_cast<fileops::popRename*>(&form);
    if (dialog != nullptr) dialog->txtDest.Text = "b2", dialog->cmdRenameClick();
  };
  Choose("a.txt", "Rename");
  EXPECT_TRUE(Platform.Files.Exists("C:\\Data\\b2"));
  const lister::RowId row = Row(100, "b2");
  EXPECT_EQ(list.Rows().PathOf(row) + (list.Input().IsSelected(row) ? "!" : ""), "C:\\Data\\b2!");
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
  // A menu of the system has the platform's entries already.
  Popups.Handle = 7;
  Platform.ItemMenus.Captions = {"&Copy"};
  EXPECT_EQ(invoked(MenuMode::Copy), Texts{"Copy"});
  EXPECT_EQ(std::exchange(Popups.Handle, 0), Platform.ItemMenus.FilledMenu);
  EXPECT_EQ(Popups.Shown.back().Id, 111788);
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
  Popups.Refused = "&Bookmarks";
  Choose("a.txt", "New Folder");
  EXPECT_EQ(Messages.Texts,
            (Texts{"A custom menu item could not be added. Please contact the makers of Tarnwell "
                   "for a patch."}));
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

TEST(MenuWordsTest, ComeFromCaptions) {
  struct Case {
    std::string Caption, Words;  // the second one without the platform's own verbs
    int Slot = -1;
  };
  for (const Case& each : {Case{"&Copy", "copy! copy!"},
                           {" C&&ut ", "cut! cut!"},
                           {"paste", "paste! paste"},
                           {"De&lete", "delete! delete"},
                           {"create shortcut\0more"s, "refresh! refresh!"},
                           {"Colour Code", "colour code colour code"},
                           {"", "unknown! unknown!"},
                           {"Copy" + std::string(251, ' ') + "x", "copy! copy!"},
                           {"Add to Slot 9", "ADD TO SLOT 9 ADD TO SLOT 9", 8},
                           {"&Clear Slot 10", "CLEAR SLOT10 CLEAR SLOT10", 9},
                           {"&RENAME Items...", "renameitems renameitems"},
                           {"&Undo: Copy of && 3", "undo undo"},
                           {"Add to slot", "ADD TO SLOTOT ADD TO SLOTOT"}}) {
    std::string words;
    for (const int mode : {1, 0}) {
      MenuWord word = WordOf(each.Caption, mode);
      words += (mode == 0 ? " " : "") + word.Word + (word.IsPlatforms ? "!" : "");
      EXPECT_EQ(TakeSlot(word.Word), each.Slot);
    }
    EXPECT_EQ(words, each.Words);
  }
}

TEST_F(ContextMenuTest, ListsAreReadAgainAfterThePlatformsWork) {
  // Which file lists have read their folders again; notices are off meanwhile.
  const int &data = Platform.Files.At("C:\\Data").Reads,
            &other = Platform.Files.At("C:\\Other").Reads;
  const auto refreshed = [&](const std::string& caption, lister::ListId list) {
    const int dataBefore = data, otherBefore = other;
    Choose(list == 100 ? "a.txt" : "o", caption, list);
    EXPECT_TRUE(IsOver());
    return std::string(data > dataBefore ? "Data " : "") + (other > otherBefore ? "Other " : "");
  };
  for (const char* caption : {"Open", "Properties", "Create Shortcut", "Copy", "Delete"}) {
    EXPECT_EQ(refreshed(caption, 100), std::string_view(caption) == "Delete" ? "Data " : "");
  }
  EXPECT_EQ(Platform.ItemMenus.Invoked,
            (Texts{"Open", "Properties", "Create Shortcut", "Copy", "Delete"}));

  EXPECT_EQ(refreshed("Cut", 100), "");
  EXPECT_EQ(refreshed("Paste", 101), "Data Other ");
  EXPECT_EQ(refreshed("Paste", 101), "Other ");  // the second has nothing to take away
  for (const char* between : {"Open", ""}) {     // also a menu that was left by Escape
    for (const char* caption : {"Cut", between}) EXPECT_EQ(refreshed(caption, 100), "");
    EXPECT_EQ(refreshed("Paste", 101), "Other ");
  }
}

TEST_F(ContextMenuTest, FollowsOperationsUpOnceTheyAreDone) {
  Platform.Operation.Holds = true;
  Platform.ItemMenus.OnInvoke = [this] {
    const bool starts = Platform.ItemMenus.Invoked.back() != "Cut";
    if (starts) Platform.ItemMenus.Started = Platform.Operation.Start({.Requests = {{}}});
  };
  Choose("a.txt", "Cut");
  Choose("o", "Paste", 101);
  EXPECT_TRUE(Platform.Watches.Watched().empty());
  EXPECT_FALSE(Space.Lists[101].Rows().StateOf(Row(101, "o")).IsTarget);
  // The user goes elsewhere, cuts something else there, and opens a menu.
  std::string sub = "C:\\Data\\Sub";
  Space.Lists[101].LoadFolderContents(sub, true);
  Space.EnteredList = 101;
  Choose("", "Cut", 101);
  const int data = Platform.Files.At("C:\\Data").Reads, other = Platform.Files.At(sub).Reads;
  Popups.OnTrack = [this] { Platform.Operation.Finish(); };
  Choose("b.txt", "");
  EXPECT_GT(Platform.Files.At("C:\\Data").Reads, data);
  EXPECT_EQ(Platform.Files.At(sub).Reads, other);
  EXPECT_TRUE(IsOver());

  // Where the user has stayed, and has no menu up, the cursor goes to what has come.
  Platform.Operation.Placed = {{"C:\\Data\\Sub\\c.txt", "C:\\Data\\c.txt"}};
  for (const std::string meanwhile : {"goes", "opens a menu", "stays"}) {
    EXPECT_NE(Menu.ShowShellMenu(0, 0, "", MenuMode::Paste), platform::NoOperation);
    if (meanwhile == "goes") Click(100, "a.txt");
    if (meanwhile == "opens a menu") Menu.ShowForClick(0, 0, "", "");
    Platform.Operation.Finish();
    EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(),
              Row(100, meanwhile == "stays" ? "c.txt" : "a.txt"));
  }
}

TEST_F(ContextMenuTest, OffersToUndoOnEmptySpace) {
  Undoable = "Undo: Copy of \"R&D\n\"";
  Click(100, "a.txt");
  Click(0, "C:\\");
  EXPECT_EQ(Popups.Text().find("|111800"), std::string::npos);
  Select({});
  Choose("", "Undo: Copy of \"RD\u240A\"");
  EXPECT_EQ(Dialogs, Texts{Undoable});
  EXPECT_NE(Popups.Text().find(" \"R&&D\u240A\"|111800\n-|111788"), std::string::npos);
}

TEST_F(ContextMenuTest, WordsLeadToTheProgramsCommands) {
  Host.OnModal = [this](forms::Form& form) {
    Dialogs.push_back(form.Name());
    if (auto* const dialog = dynamic_cast<fileops::popRename*>(&form)) {
      if (dialog->txtDest.Text == "b.txt") dialog->txtDest.Text = "z.txt";
      dialog->cmdRenameClick();
    } else if (auto* const folder = dynamic_cast<fileops::popNewFolder*>(&form)) {
      Dialogs.push_back(folder->txtDest.Text);
    }
  };
  Choose("b.txt", "Rename");
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "z.txt"));
  Platform.ItemMenus.Captions.emplace_back("&RENAME");  // it is taken for the program's own
  Popups.Refused = "Rena&me";
  Choose("c.txt", "RENAME");
  Choose("Sub", "New Folder");
  CommandLine = [this] { Dialogs.emplace_back("line"); };
  Choose("a.txt", "Command Line");
  EXPECT_EQ(Dialogs, (Texts{"popRename", "popRename", "popNewFolder", "C:\\Data\\", "line"}));
  EXPECT_TRUE(Platform.ItemMenus.Invoked.empty());
  Select({"a.txt", "z.txt"});
  Platform.Operation.OnRun = [this](const platform::OperationRequest&) {
    Platform.Files.AddFile("C:\\Data\\twin");
    return 0;
  };
  Platform.Operation.Placed = {{"C:\\Data\\z.txt", "C:\\Data\\twin"}};
  Choose("z.txt", "Duplicate");
  ASSERT_EQ(Platform.Operation.Requests.size(), 2U);
  EXPECT_EQ(Platform.Operation.Requests[0].Items, "C:\\Data\\z.txt\0"s);
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "twin"));
  Platform.Operation.Placed = {{"C:\\Other\\b", "C:\\Data\\z.txt"}};
  Platform.ItemMenus.Started = Platform.Operation.Start({.Requests = {{}}});
  Choose("a.txt", "Paste");
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "z.txt"));

  Platform.ItemMenus.Captions = {"Compact Database"};
  Choose("Sub", "Compact Database");
  EXPECT_EQ(Dialogs.back(), "compact C:\\Data\\Sub");
}

TEST_F(ContextMenuTest, RenamesManyByRulesAndByLines) {
  Texts status;
  const auto tell = [&](const fileops::frmRenameItems& form) {
    status.push_back(form.lblStatus.Caption + (form.cmdRename.Enabled ? "!" : ""));
  };
  Host.OnModal = [&](forms::Form& shown) {
    auto& form = dynamic_cast<fileops::frmRenameItems&>(shown);
    const auto by = [&](const std::string& pattern) {
      form.txtPattern.Text = pattern;
      form.RulesTyped();
      tell(form);
    };
    const auto lines = [&](const Texts& typed) {
      form.LinesTyped(0, form.Lines.size(), typed);
      while (form.IsAtWork()) form.GoOn();
    };
    tell(form);
    by("c.{ext}");
    by("{nothing}");
    by("{counter}.{ext}");
    form.ShowLines(true);
    lines({"b.txt"});
    tell(form);
    lines({"b.txt", "a.txt"});
    tell(form);
    // Somebody takes the name in the meantime.
    Platform.Files.AddFile("C:\\Data\\7.txt", "");
    lines({"7.txt", "a.txt"});
    form.cmdRenameClick();
    EXPECT_FALSE(form.Result);
    EXPECT_EQ(form.Table().NextFault(9), 0U);
    tell(form);
    lines({"b.txt", "a.txt"});
    form.cmdRenameClick();
  };
  Click(100, "a.txt");
  EXPECT_EQ(Popups.Find("Rename Items..."), nullptr);
  Select({"a.txt", "b.txt"});
  Choose("b.txt", "Rename Items...");
  ASSERT_EQ(Platform.Operation.Requests.size(), 1U);
  const platform::OperationRequest& request = Platform.Operation.Requests[0];
  EXPECT_EQ(InOneLine(request),
            "4 C:\\Data\\a.txt;C:\\Data\\b.txt;C:\\Data\\a (being renamed).txt;> "
            "C:\\Data\\a (being renamed).txt;C:\\Data\\a.txt;C:\\Data\\b.txt;");
  EXPECT_EQ(request.Flags, platform::OwnTargets);
  EXPECT_EQ(status, (Texts{"No item gets another name so far.", "2 names cannot be used.",
                           "There is no field {nothing}.", "2 of 2 items get other names.!",
                           "There is 1 line for 2 items. Each needs one.",
                           "2 of 2 items get other names.!", "1 name cannot be used."}));
}

TEST_F(ContextMenuTest, ProgramsOwnClipboardTakesThePlaceOfThePlatforms) {
  Space.ShellVerbMode = 0;
  Platform.ItemMenus.Captions = {"&Paste", "&Paste Special", "Cu&t", "&Delete"};
  Choose("a.txt", "Cut");
  EXPECT_EQ(Popups.Find("Paste Special"), nullptr);  // the lower one goes while nothing is kept
  EXPECT_NE(Popups.Find("Paste"), nullptr);
  EXPECT_EQ(Space.InternalClipAction + std::to_string(Space.InternalClipSource), "move100");
  Space.CurrentList = 101;
  Popups.Choice = "Paste";
  Menu.ShowForClick(0, 0, "", "C:\\Other\\");
  EXPECT_NE(Popups.Find("Paste Special"), nullptr);
  ASSERT_EQ(Platform.Operation.Requests.size(), 1U);
  EXPECT_EQ(InOneLine(Platform.Operation.Requests[0]), "1 C:\\Data\\a.txt;;> C:\\Other\\;");
  EXPECT_EQ(Space.InternalClipSource, lister::NoList);
  Space.CurrentList = 100;
  Choose("a.txt", "Delete");
  EXPECT_EQ(Dialogs, Texts{"popDelete"});
  EXPECT_EQ(Platform.ItemMenus.Invoked, Texts{"Cut"});
}

TEST_F(ContextMenuTest, BookmarksHoldTheFolderThatWasClicked) {
  const auto slot = [this](std::size_t number) {
    return Space.Settings.Bookmarks[number - 1].Path;
  };
  Choose("Sub", "Add to Slot 1");
  Choose("a.txt", "Add to Slot 1");  // no folder: the slot keeps what it has
  Choose("Sub", "Add to Slot 10");
  Select({});
  Choose("", "Add to Slot 3");
  Choose("C:\\", "Add to Slot 4", 0);
  EXPECT_EQ(slot(1) + "|" + slot(3) + "|" + slot(4) + "|" + slot(10),
            "C:\\Data\\Sub|C:\\Data\\|C:\\|C:\\Data\\Sub");
  Choose("a.txt", "Clear Slot 10");
  EXPECT_EQ(slot(10), "(empty)");

  // A row of 100 characters is shown whole, each of two bytes.
  std::string name;
  while (name.size() < 2 * (100 - 3)) name += "\u00E4";
  for (const char* more : {"", "x"}) {
    Space.Settings.Bookmarks[1].Path = "C:\\" + name + more;
    Choose("a.txt", "Clear Slot 10");
    const std::string& shown = Space.Settings.Bookmarks[1].DisplayPath;
    EXPECT_EQ(base::CodePointCount(shown), 100U);
    EXPECT_EQ(shown.find("...") == std::string::npos, std::string_view(more).empty());
  }
  Platform.ItemMenus.Captions = {"Add to slot 77"};
  Choose("Sub", "Add to slot 77");
  EXPECT_TRUE(IsOver());
}

TEST_F(ContextMenuTest, ColoursComeWithAHintEach) {
  Space.Settings.FileCountMax = 3;
  Choose("a.txt", "Dark Green");
  EXPECT_EQ(
      Platform.Files.At("C:\\Data\\a.txt").ExtendedAttributes[platform::ExtendedAttribute::Colour],
      "dark green");
  ASSERT_EQ(Coloured.size(), 1U);
  EXPECT_EQ(Coloured[0].Path + " " + Coloured[0].After, "C:\\Data\\a.txt dark green");
  ASSERT_EQ(Messages.Texts.size(), 1U);
  EXPECT_TRUE(Messages.Texts[0].starts_with("Note: This is the first time you are color coding"));

  Space.Settings.FirstColorEver = true;
  Space.Settings.FileCountMax = 2;
  Choose("a.txt", "Default");
  Choose("a.txt", "Red");
  // In a tree the folder that was clicked, and not the open one.
  Choose("C:\\", "Blue", 0);
  EXPECT_EQ(Platform.Files.At("C:\\").ExtendedAttributes[platform::ExtendedAttribute::Colour],
            "blue");
  ASSERT_EQ(Messages.Texts.size(), 3U);
  EXPECT_EQ(Messages.Texts[2],
            "When there are over 2 files in a folder, Tarnwell doesn't show the color coding "
            "because it takes too long to check each file.\r\n\r\nFeel free to override this "
            "behaviour in the Options if you wish.");
  EXPECT_FALSE(Space.Settings.IsFirstColorCodingOverMax);
}

TEST_F(ContextMenuTest, OfATitleLeadsAboutAndGivesBookmarksAndAccents) {
  TitleMenu menu(Space, Syntax, Nav, Popups);
  auto& slots = Space.Settings.Bookmarks;
  const auto choose = [&](int pane, const std::string& caption) {
    Popups.Choice = caption;
    menu.Show(pane);
    return Syntax.RemoveRightSlash(Space.Panes[pane].CurrentPath);
  };
  Platform.Files.AddFolder("C:\\R&D");
  slots[0].Path = "C:\\R&D";
  EXPECT_EQ(choose(0, "Add This Folder to Slot 2"), "C:\\Data");
  EXPECT_EQ(slots[1].Path + slots[1].DisplayPath, "C:\\DataC:\\Data");
  EXPECT_EQ(choose(1, "C:\\"), "C:");  // while a list of pane 1 is the current one
  EXPECT_EQ(choose(1, "1  C:\\RD"), "C:\\R&D");
  EXPECT_EQ(choose(1, "2  C:\\Data") + choose(0, ""), "C:\\DataC:\\Data");
  EXPECT_EQ(choose(1, "C:\\RD"), "C:\\R&D");  // by the history, which leaves it as it is
  EXPECT_EQ(choose(1, "C:\\Data"), "C:\\Data");
  EXPECT_TRUE(Popups.Find("C:\\RD")->IsChecked);
  choose(1, "Orange");
  EXPECT_EQ(Space.Panes[1].Accent, 2);
  choose(1, "None");
  EXPECT_TRUE(Popups.Find("Orange")->IsChecked && !Popups.Find("None")->IsChecked);
  EXPECT_EQ(Space.Panes[1].Accent, 0);
  for (auto& slot : slots) slot.Path = "C:\\";
  menu.Show(0);
  EXPECT_FALSE(Popups.Find("Add This Folder: no bookmark slot is free")->Enabled);
}

}  // namespace
}  // namespace tarnwell::shellmenu
