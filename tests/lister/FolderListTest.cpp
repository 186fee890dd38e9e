#include "ListFixture.h"
#include "lister/rows/NameOrder.h"

namespace tarnwell::lister {
namespace {

class FolderList : public ListFixture {
 protected:
  FolderList() : ListFixture(2) {
    for (const char* folder : {"C:\\Work\\p10", "C:\\Work\\p9\\deep\\deeper", "C:\\apps", "C:\\Zoo",
                               "D:\\Music\\Live"}) {
      Platform.Files.AddFolder(folder);
    }
    Platform.Files.AddFile("C:\\note.txt");
    Platform.Files.AddFolder("C:\\secret").IsHidden = true;
    Platform.Files.AddLink("C:\\music", "D:\\Music");
    Platform.Files.AddLink("C:\\lost", "D:\\nowhere");
  }

  int Reads(const std::string& path) { return Platform.Files.At(path).Reads; }
  RowId RowOf(const std::string& path, RowId parent = RootRow) const {
    for (int at = 0; at < Rows.ChildCount(parent); ++at) {
      const RowId row = Rows.Child(parent, at);
      if (Rows.PathOf(row) == path) return row;
      if (const RowId below = RowOf(path, row); below != NoRow) return below;
    }
    return NoRow;
  }
};

TEST_F(FolderList, ReadsBranchesWhenTheyAreFirstExpandedOrOpened) {
  List.OpenFolder(0);  // before there is any
  List.RefreshList();
  LoadDrive("C");
  const RowId top = Rows.Child(RootRow, 0);
  EXPECT_EQ(Names(top), (Texts{"apps", "music", "Work", "Zoo"}));
  EXPECT_TRUE(Rows.StateOf(top).IsOpen && Rows.StateOf(Row(top, "music")).IsLink);

  const RowId work = Row(top, "Work");
  EXPECT_TRUE(Rows.StateOf(work).HasChildren);
  EXPECT_EQ(Reads("C:\\Work"), 0);
  Rows.Expand(work);
  EXPECT_EQ(Names(work), (Texts{"p9", "p10"}));
  Rows.Expand(Row(work, "p10"));
  EXPECT_FALSE(Rows.StateOf(Row(work, "p10")).HasChildren);
  EXPECT_EQ(Events.Take(), Texts{"FolderSelected 2"});  // of the drive
  CheckNoRow(RowId{999});

  // A folder is opened with the branches above it.
  List.OpenFolder(0, "c:\\work\\P9\\deep\\");
  EXPECT_EQ(List.CurrentFolder(), "C:\\Work\\p9\\deep");
  EXPECT_EQ(List.CurrentNodeLevel(), 4);
  EXPECT_EQ(List.ParentOfKey(List.CurrentNodeKey()), "C:\\Work\\p9");
  EXPECT_EQ(Expanded(), (Texts{"C:\\", "C:\\Work", "C:\\Work\\p10", "C:\\Work\\p9"}));

  // Told again by OpenFolder, not by a cursor that comes to rest where it was.
  List.OpenFolder(0, "C:\\Work\\p9\\deep");
  Rows.MoveCurrent(Rows.CurrentRow());
  EXPECT_EQ(Events.Take().size(), 2u);

  // What the user asks for is shown although it is hidden, or new since the branch was read.
  List.OpenFolder(0, "C:\\secret");
  EXPECT_TRUE(Rows.StateOf(RowOf("C:\\secret")).IsHidden);
  Platform.Files.AddFolder("C:\\Work\\p9\\new");
  List.ExpandFolder(0, "C:\\Work\\p9\\", 1);
  List.OpenFolder(0, "C:\\Work\\p9\\new");
  EXPECT_EQ(List.CurrentFolder(), "C:\\Work\\p9\\new");
  List.OpenFolder(0);
  Events.Take();
  for (const char* path : {"C:\\Work\\none", "D:\\Music", "C:\\note.txt", "C:\\Work\\.."}) {
    List.OpenFolder(0, path);
    EXPECT_EQ(List.CurrentFolder(), "C:\\") << path;
    EXPECT_TRUE(List.Shown().Status.starts_with("Cannot open ")) << List.Shown().Status;
  }
  EXPECT_TRUE(Events.Take().empty());
}

TEST_F(FolderList, RestoresExpandedBranchesAndDropsThoseThatAreGone) {
  for (const char* path : {"C:\\Work\\p9\\deep", "C:\\gone", "C:\\gone\\below", "C:\\Work\\p9\\",
                           "C:\\secret", "D:\\Music", "C:\\Work\\p9"}) {
    List.AddExpanded(path);
  }
  LoadDrive("C");
  EXPECT_EQ(Expanded(),
            (Texts{"C:\\", "C:\\secret", "C:\\Work\\p9", "C:\\Work\\p9\\deep", "D:\\Music"}));
  EXPECT_EQ(Reads("C:\\Work\\p9"), 0);  // the branch above it is not expanded
  Rows.Expand(RowOf("C:\\Work"));
  EXPECT_TRUE(Rows.StateOf(RowOf("C:\\Work\\p9\\deep")).IsExpanded);

  // What cannot be looked at may come back, and so may what lies below a mount point.
  Platform.Files.At("C:\\Work\\p9").AttributesFault = Platform.Files.Denied();
  Platform.Files.AddFolder("C:\\Zoo\\disk\\inside");
  List.OpenFolder(0, "C:\\Zoo\\disk\\inside");
  List.OpenFolder(0);
  Platform.Files.Remove("C:\\Zoo\\disk\\inside");
  List.AddExpanded("C:\\Zoo\\disk\\inside");
  Platform.Files.At("C:\\apps").ReadFault = Platform.Files.Denied();
  List.AddExpanded("C:\\apps\\gone");
  Rows.Expand(RowOf("C:\\apps"));
  const Texts before = Expanded();
  List.RefreshList();
  LoadDrive("C");
  EXPECT_EQ(Expanded(), before);
  Platform.Files.AddFolder("C:\\Zoo\\disk\\other");
  List.RefreshList();
  EXPECT_EQ(Expanded().size(), before.size() - 1);
}

TEST_F(FolderList, RemembersTheFolderOfEachDrive) {
  Platform.Drives.Home = "D:\\Music\\Live";
  EXPECT_EQ(List.DriveFolder("D"), "D:\\Music\\Live");
  List.AddActiveItem("C:\\", "C:\\Work\\p9");
  LoadDrive("C");
  EXPECT_EQ(List.CurrentFolder(), "C:\\Work\\p9");
  Events.Take();
  List.User().ChooseDrive("D");
  EXPECT_EQ(Events.Take(), Texts{"DriveSelected 2"});
  EXPECT_EQ((Texts{List.InitialDrive(), List.DriveFolder()}), (Texts{"D", "D:\\Music\\Live"}));

  Platform.Files.Remove("C:\\Work");
  LoadDrive("C");
  EXPECT_EQ(List.CurrentFolder(), "C:\\");
}

TEST_F(FolderList, ShowsAnUnreadableBranchAsEmpty) {
  Platform.Files.At("C:\\Work").ReadFault = Platform.Files.Denied();
  LoadDrive("C");
  const RowId work = RowOf("C:\\Work");
  Rows.Expand(work);
  EXPECT_EQ(List.Shown().Status, "Cannot read C:\\Work: Permission denied");
  EXPECT_TRUE(!Rows.StateOf(work).HasChildren && !Rows.StateOf(work).IsExpanded);

  // What lies in it can be entered all the same.
  List.OpenFolder(0, "C:\\Work\\p9");
  List.RefreshList();
  EXPECT_EQ(List.CurrentFolder(), "C:\\Work\\p9");
  EXPECT_EQ(Names(work), Texts{"p9"});

  Platform.Files.At("C:\\Work").ReadFault = {};
  List.RefreshList();
  EXPECT_EQ(Names(work), (Texts{"p9", "p10"}));
  List.DrivesChanged();  // a count is no news
  EXPECT_EQ(List.Shown().Status + List.Shown().News(), "7 folders");
}

TEST_F(FolderList, TakesOverAnyChange) {
  // The view checks each step; many names come and go between others, in two branches, and are read
  // again or told by notices. Some are files, some are hidden.
  Platform.Files.AddFolder("D:\\keep\\open");
  LoadDrive("D");
  List.OpenFolder(0, "D:\\keep\\open");
  const RowId top = Rows.Child(RootRow, 0), keep = Row(top, "keep"), open = Rows.CurrentRow();
  const NameOrder order(Platform.Order);
  std::mt19937 random(5);
  for (int round = 0; round < 150; ++round) {
    std::map<std::string, platform::FolderChanges> changes;
    for (int change = round % 3 == 0 ? 80 : 3; change > 0; --change) {
      const std::string folder = random() % 2 == 0 ? "D:\\" : "D:\\keep";
      const std::string name = "n" + std::to_string(random() % 60);
      const std::string path = Platform.Files.Syntax().Join(folder, name);
      const auto kind = random() % 8;
      Platform.Files.Remove(path);
      if (kind == 0) Platform.Files.AddFile(path);
      if (kind > 3) Platform.Files.AddFolder(path + "\\below");
      if (kind == 7) Platform.Files.At(path).IsHidden = true;
      changes[folder].Names.push_back(name);
    }
    const bool descending = round % 14 < 7;
    if (round % 7 == 0) List.SortCommand(descending ? "des" : "asc");
    if (round % 4 == 0) Rows.Expand(Rows.Child(top, 0));
    if (round % 5 == 0 && Rows.Child(top, 1) != keep) Rows.Collapse(Rows.Child(top, 1));
    if (round % 2 == 0) List.RefreshList();
    for (const auto& [folder, change] : changes) Platform.Watches.Notify(folder, change);
    for (const RowId row : {top, keep}) {
      Texts expected = row == top ? Texts{"Music", "keep"} : Texts{"open"};
      for (int number = 0; number < 60; ++number) {
        const std::string name = "n" + std::to_string(number);
        const std::string path = Platform.Files.Syntax().Join(Rows.PathOf(row), name);
        if (!Platform.Files.FolderExists(path) || Platform.Files.At(path).IsHidden) continue;
        expected.push_back(name);
      }
      std::sort(expected.begin(), expected.end(),
                [&](const auto& left, const auto& right) { return order.Before(left, right); });
      if (descending) std::reverse(expected.begin(), expected.end());
      ASSERT_EQ(Names(row), expected) << round;
    }
    ASSERT_EQ(Rows.CurrentRow(), open);
    View.Check();
  }
  EXPECT_EQ(View.Resets, 1);
}

TEST_F(FolderList, ShowsAndSortsByWhatHeadingsAskOfFolders) {
  for (const char* name : {"apps", "music", "Work", "Zoo"}) {
    Platform.Files.AddFolder("C:\\many\\" + std::string(name)).Modified = 86'400'000'000'000;
  }
  Platform.Files.At("C:\\many\\music").Modified *= 3;
  Platform.Files.At("C:\\many\\Zoo").ExtendedAttributes = {
      {platform::ExtendedAttribute::Colour, "blue"},
      {platform::ExtendedAttribute::Comment, "lions"}};
  List.AddSortKey(1, "sSize", "asc");
  List.SortCommand("desadd");
  EXPECT_EQ(List.SortKeyCount(), 1);  // a tree goes by one heading
  List.SortCommand("asc");
  LoadDrive("C");
  List.ExpandFolder(0, "C:\\many", 1);
  const RowId many = RowOf("C:\\many"), music = Row(many, "music"), zoo = Row(many, "Zoo");
  const auto modified = HeadingId::DateLastModified;
  List.HeadingMenuClick("mnuHeadingDateLastModified");
  List.HeadingMenuClick("mnuHeadingComments");
  EXPECT_EQ(Rows.CellText(music, modified), "1970-01-04 00:00:00");
  EXPECT_EQ(Rows.CellText(zoo, HeadingId::Comments), "lions");
  List.SetProperty("ShowColor", base::Value(true));
  EXPECT_EQ(Rows.StateOf(zoo).Colour, ItemColour::Blue);
  List.SetProperty("FileCountMax", base::Value(std::int32_t{3}));
  EXPECT_EQ(Rows.StateOf(zoo).Colour, ItemColour::Default);

  // By date, then by name; what comes or changes finds its place.
  List.AddSortKey(0, "sModified", "des");
  EXPECT_EQ(Names(many), (Texts{"music", "apps", "Work", "Zoo"}));
  Platform.Files.At("C:\\many\\Work").Modified *= 5;
  Platform.Files.AddFolder("C:\\many\\new").Modified = 86'400'000'000'000 * 4;
  List.HeadingMenuClick("mnuHeadingComments");
  Platform.Watches.Notify("C:\\many", {{"new", "Work"}, false, false});
  EXPECT_EQ(Names(many), (Texts{"Work", "new", "music", "apps", "Zoo"}));

  // Messages are let through between small branches too. Commands do not wait for attributes.
  for (int number = 0; number < 100; ++number) {
    const std::string path = "D:\\n" + std::to_string(number);
    Platform.Files.AddFolder(path).Modified = number + 1;
    List.AddExpanded(path);
  }
  Platform.Clock.TickStep = 1;
  PostAt(16, [this] {
    List.OpenFolder(0, "D:\\n7");
    EXPECT_EQ(List.CurrentFolder(), "D:\\n7");
  });
  LoadDrive("D");
  EXPECT_EQ(Names(Rows.Child(RootRow, 0)).front(), "n99");
  const int calls = Platform.Pump.Calls;
  Platform.Pump.Post([] {});
  Platform.Pump.Post([this] { List.CancelRequested = true; });
  List.RefreshList();
  EXPECT_EQ(Platform.Pump.Calls, calls + 2);
  EXPECT_EQ(List.Shown().Status, "Reading stopped");
}

TEST_F(FolderList, FollowsEveryBranchOnShow) {
  LoadDrive("C");
  List.OpenFolder(0, "C:\\Work\\p9");
  EXPECT_EQ(Platform.Watches.Watched(), (Texts{"C:\\", "C:\\Work", "C:\\Work\\p9"}));
  Rows.Expand(Rows.CurrentRow());
  Platform.Files.AddFolder("C:\\Work\\p9\\new");
  Platform.Watches.Notify("C:\\Work\\p9");
  EXPECT_NE(RowOf("C:\\Work\\p9\\new"), NoRow);

  // Nobody tells of a branch that is collapsed: it is read again when it comes back.
  Rows.Collapse(RowOf("C:\\Work"));
  EXPECT_EQ(Expanded(), (Texts{"C:\\", "C:\\Work\\p9"}));
  EXPECT_EQ(Rows.CurrentRow(), RowOf("C:\\Work"));
  List.OpenFolder(0, "C:\\apps");
  Platform.Files.AddFolder("C:\\Work\\p9\\deeper");
  Rows.Expand(RowOf("C:\\Work"));
  EXPECT_EQ(Names(RowOf("C:\\Work\\p9")), (Texts{"deep", "deeper", "new"}));

  // Whatever was missed in a bracket is made up for, unless a refresh has done it; also what the
  // watch was about to tell.
  Platform.Files.AddFolder("C:\\late");
  List.WatchStop();
  Platform.Files.AddFolder("C:\\Work\\p11");
  List.OpenFolder(0, "C:\\Zoo");
  EXPECT_TRUE(Platform.Watches.Watched().empty());
  List.WatchResume();
  EXPECT_NE(RowOf("C:\\Work\\p11"), NoRow);
  EXPECT_NE(RowOf("C:\\late"), NoRow);
  List.WatchStop();
  List.RefreshList();
  const int reads = Reads("C:\\");
  List.WatchStart();
  EXPECT_EQ(Reads("C:\\"), reads);
  EXPECT_EQ(Platform.Watches.Watched().size(), 4u);

  // The nearest folder that exists is opened, once, and nothing else collapses.
  List.OpenFolder(0, "C:\\Work\\p9\\deep\\deeper");
  Events.Take();
  Platform.Files.Remove("C:\\Work\\p9");
  Platform.Watches.Notify("C:\\Work\\p9\\deep", {{}, false, true});
  Platform.Watches.Notify("C:\\Work", {{"p9"}, false, false});
  EXPECT_EQ(List.CurrentFolder(), "C:\\Work");
  EXPECT_EQ(Events.Take(), Texts{"FolderSelected 2"});

  // A burst during a command is served once, after it.
  Platform.Clock.TickStep = 50;
  const int before = Reads("C:\\Work");
  for (int notice = 0; notice < 3; ++notice) {
    Platform.Pump.Post([this] { Platform.Watches.Notify("C:\\Work"); });
  }
  List.RefreshList();
  EXPECT_EQ(Reads("C:\\Work"), before + 2);
  Platform.Clock.TickStep = 0;

  // After long work the next notices wait a while.
  Platform.Files.Remove("C:\\");
  Platform.Watches.Notify("C:\\", {{}, false, true});
  EXPECT_EQ(List.CurrentFolder(), "C:\\Work");
  ASSERT_EQ(View.CatchUps.size(), 1u);
  Platform.Clock.Tick += View.CatchUps[0];
  List.CatchUp();
  EXPECT_EQ(Names(), Texts{List.CurrentFolder()});
  EXPECT_EQ(List.Shown().Status, "Cannot read C:\\: No such file or directory");
  Platform.Files.AddFolder("C:\\back");  // the volume is there again
  List.DrivesChanged();
  EXPECT_NE(RowOf("C:\\back"), NoRow);
}

TEST_F(FolderList, BearsCommandsOfItsListenerAndAnEndDuringARead) {
  LoadDrive("C");
  // A listener may open another folder while it is told of the first.
  Events.OnFolderSelected = [this] {
    Events.OnFolderSelected = nullptr;
    List.OpenFolder(0, "C:\\Zoo");
  };
  List.OpenFolder(0, "C:\\Work");
  EXPECT_EQ(List.CurrentFolder(), "C:\\Zoo");

  Platform.Clock.TickStep = 50;
  Platform.Pump.Post([this] { List.Terminate(); });
  List.RefreshList();
  EXPECT_TRUE(Platform.Watches.Watched().empty());
}

}  // namespace
}  // namespace tarnwell::lister
