#include <algorithm>
#include <map>
#include <random>

#include "ListFixture.h"

namespace tarnwell::lister {
namespace {

class FileList : public ListFixture {
 protected:
  FileList() : ListFixture(102) {
    fakes::MemoryFileSystem& files = Platform.Files;
    files.AddFolder("C:\\box\\sub");
    files.AddFile("C:\\box\\b10.txt", std::string(1234567, 'x')).Modified = 1'000'000'000;
    files.AddFile("C:\\box\\B9.txt", "abc").Mode = 0555;
    files.AddFile("C:\\box\\a.PDF", "abc").Modified = 86'400'000'000'000;
    files.AddFile("C:\\box\\.profile").IsHidden = true;
    files.AddFile("C:\\box\\plain").AttributesFault = files.Denied();
    files.AddLink("C:\\box\\way", "C:\\box\\sub");
    files.AddLink("C:\\box\\end", "C:\\none");
  }

  void Load(std::string folder = "C:\\box\\") { List.LoadFolderContents(folder, true); }
  std::string Cell(const std::string& name, HeadingId heading) const {
    return List.CellText(Row(RootRow, name), heading);
  }
  Texts SortKeyTexts() const {
    Texts keys;
    std::string key, direction;
    for (int at = 0; List.GetSortKey(at, key, direction); ++at) keys.push_back(key + direction);
    return keys;
  }
};

TEST_F(FileList, ShowsTheItemsOfItsFolder) {
  List.ShowHidden = true;
  Load();
  EXPECT_EQ(List.CurrentFolder(), "C:\\box");
  EXPECT_EQ(Names(),
            (Texts{"sub", "way", ".profile", "a.PDF", "B9.txt", "b10.txt", "end", "plain"}));
  EXPECT_EQ(List.StatusText(),
            "8 items (2 folders), 1.2 MB. 1 item could not be read: Permission denied");

  EXPECT_EQ(Cell("b10.txt", HeadingId::Size), "1,234,567");
  EXPECT_EQ(Cell("B9.txt", HeadingId::Size), "3");
  EXPECT_EQ(Cell("sub", HeadingId::Size) + Cell("plain", HeadingId::Size), "");
  EXPECT_EQ(Cell("a.PDF", HeadingId::DateLastModified), "1970-01-02 00:00:00");
  EXPECT_EQ(Cell("B9.txt", HeadingId::DateLastModified), "");
  EXPECT_EQ(Cell("a.PDF", HeadingId::Extension), "PDF");
  EXPECT_EQ(Cell("b10.txt", HeadingId::FileType), "TXT file");
  EXPECT_EQ(Cell(".profile", HeadingId::FileType), "File");
  EXPECT_EQ(Cell("way", HeadingId::FileType), "Folder");
  EXPECT_EQ(Cell("end", HeadingId::FileType), "Link");
  EXPECT_EQ(Cell("way", HeadingId::Attributes), "L");
  EXPECT_EQ(Cell("B9.txt", HeadingId::Attributes), "R");
  EXPECT_EQ(Cell(".profile", HeadingId::Attributes), "H");
  EXPECT_EQ(Cell("B9.txt", HeadingId::Permissions), "r-xr-xr-x");
  EXPECT_EQ(Cell("a.PDF", HeadingId::Path), "C:\\box");
  EXPECT_EQ(List.PathOf(Row(RootRow, "sub")), "C:\\box\\sub");

  List.Activate(Row(RootRow, "way"));
  List.Activate(Row(RootRow, "a.PDF"));
  EXPECT_EQ(Events.Take(), Texts{"OpenChildFolder C:\\box\\way in C:\\box"});
  List.MoveCurrent(Row(RootRow, "a.PDF"));
  EXPECT_EQ(Events.Take(), Texts{"ItemFocused 3"});
  for (const RowId row : {NoRow, RootRow, RowId{9}}) {
    EXPECT_EQ(List.PathOf(row) + List.CellText(row, HeadingId::Path), "");
    EXPECT_EQ(List.PositionOf(row), -1);
    List.MoveCurrent(row);
    List.Activate(row);
  }
  EXPECT_TRUE(Events.Take().empty());
}

TEST_F(FileList, SortsByItsKeysInTurn) {
  Load();
  EXPECT_EQ(SortKeyTexts(), Texts{"sNameasc"});
  List.SetProperty("ActiveHeading", std::int32_t{3});  // the size
  List.SortCommand("des");
  EXPECT_EQ(Names(), (Texts{"sub", "way", "b10.txt", "a.PDF", "B9.txt", "end", "plain"}));
  List.DoubleClickHeading(1, true);
  EXPECT_EQ(SortKeyTexts(), (Texts{"sSizedes", "sExtensionasc"}));
  EXPECT_EQ(Names(), (Texts{"sub", "way", "b10.txt", "a.PDF", "B9.txt", "end", "plain"}));
  List.SortCommand("desadd");  // the extension keeps its place
  EXPECT_EQ(SortKeyTexts(), (Texts{"sSizedes", "sExtensiondes"}));
  EXPECT_EQ(Names(), (Texts{"sub", "way", "b10.txt", "B9.txt", "a.PDF", "end", "plain"}));

  List.DoubleClickHeading(0, false);
  EXPECT_EQ(SortKeyTexts(), Texts{"sNameasc"});
  List.DoubleClickHeading(0, false);
  EXPECT_EQ(Names(), (Texts{"way", "sub", "plain", "end", "b10.txt", "B9.txt", "a.PDF"}));
  List.DoubleClickHeading(0, false);
  EXPECT_EQ(SortKeyTexts(), Texts{"sNameasc"});
  List.SortCommand("sideways");

  List.AddSortKey(1, "sType", "asc");
  List.AddSortKey(2, "sNone", "asc");
  List.AddSortKey(2, "sSize", "up");
  List.AddSortKey(3, "sSize", "asc");
  List.AddSortKey(-1, "sSize", "asc");
  EXPECT_EQ(SortKeyTexts(), (Texts{"sNameasc", "sTypeasc"}));
  List.AddSortKey(0, "sType", "des");
  EXPECT_EQ(SortKeyTexts(), Texts{"sTypedes"});
  EXPECT_EQ(Names(), (Texts{"sub", "way", "B9.txt", "b10.txt", "a.PDF", "end", "plain"}));
}

TEST_F(FileList, PutsLateAttributesInOrderOnceAtTheEnd) {
  List.AddSortKey(0, "sSize", "des");
  Platform.Clock.TickStep = 50;
  Load();
  EXPECT_EQ(Names(), (Texts{"sub", "way", "b10.txt", "a.PDF", "B9.txt", "end", "plain"}));
  EXPECT_EQ(View.Reorders, 1);
  List.RefreshList();
  EXPECT_EQ(View.Reorders, 1);  // nothing has changed
  EXPECT_GT(Platform.Pump.Calls, 7);
}

TEST_F(FileList, RefreshKeepsTheCursorOnItsItemOrItsPlace) {
  Load();
  List.MoveCurrent(Row(RootRow, "b10.txt"));
  Platform.Files.AddFile("C:\\box\\aa.txt");
  List.RefreshList();
  EXPECT_EQ(List.CurrentRow(), Row(RootRow, "b10.txt"));
  Platform.Files.Remove("C:\\box\\b10.txt");
  List.RefreshList();
  EXPECT_EQ(List.CurrentRow(), Row(RootRow, "end"));
  List.MoveCurrent(Row(RootRow, "plain"));
  Platform.Files.Remove("C:\\box\\plain");
  List.RefreshList();
  EXPECT_EQ(List.CurrentRow(), Row(RootRow, "end"));

  // A folder that was visited before has the cursor where it was.
  List.MoveCurrent(Row(RootRow, "B9.txt"));
  Load("C:\\box\\sub");
  EXPECT_EQ(List.CurrentRow(), NoRow);
  Load();
  EXPECT_EQ(List.CurrentRow(), Row(RootRow, "B9.txt"));
}

TEST_F(FileList, RefreshKeepsRowsAndFitsAnyChange) {
  // The view checks each step. Now and then so much changes that rows are gathered first.
  const std::string folder = "D:\\many\\";
  Platform.Files.AddFile(folder + "keep");
  Load(folder);
  List.MoveCurrent(Row(RootRow, "keep"));
  const int resets = View.Resets, moves = View.CurrentChanges;
  std::mt19937 random(7);
  std::map<std::string, RowId> rows;
  for (int round = 0; round < 120; ++round) {
    for (int change = round % 5 == 0 ? 90 : 3; change > 0; --change) {
      const std::string name = "n" + std::to_string(random() % 150);
      switch (random() % 3) {
        case 0:
          Platform.Files.Remove(folder + name);
          rows.erase(name);
          break;
        case 1:
          Platform.Files.AddFile(folder + name, std::string(random() % 9, 'x'));
          break;
        default:
          if (!Platform.Files.Exists(folder + name)) Platform.Files.AddFolder(folder + name);
      }
    }
    if (round % 7 == 0) List.AddSortKey(0, round % 2 == 0 ? "sSize" : "sName", "des");
    List.RefreshList();
    View.Check();
    for (const auto& [name, row] : rows) EXPECT_EQ(Row(RootRow, name), row) << name;
    for (const std::string& name : Names()) rows[name] = Row(RootRow, name);
    ASSERT_EQ(rows.size(), Platform.Files.At(folder).Children.size());
    EXPECT_EQ(List.CurrentRow(), rows["keep"]);
  }
  EXPECT_EQ(View.Resets, resets);
  EXPECT_EQ(View.CurrentChanges, moves);
}

TEST_F(FileList, LoadsThatComeDuringALoadDoNotNest) {
  Platform.Clock.TickStep = 50;
  int depth = 0, deepest = 0, loads = 0;
  // The user goes from folder to folder faster than they are read.
  const std::function<void()> goOn = [&] {
    deepest = std::max(deepest, ++depth);
    if (++loads < 40) Platform.Pump.Post(goOn);
    Load(loads % 2 == 0 ? "C:\\box\\sub" : "C:\\box");
    List.SetCurrentFolder(loads % 2 == 0 ? "C:\\box\\sub\\" : "C:\\box\\");
    --depth;
  };
  Platform.Files.AddFile("C:\\box\\sub\\inner");
  Platform.Pump.Post(goOn);
  Load();
  EXPECT_EQ(loads, 40);
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(List.CurrentFolder(), "C:\\box\\sub");
  EXPECT_EQ(Names(), Texts{"inner"});

  // Escape is for the newest.
  Platform.Pump.Post([this] {
    Load("C:\\box");
    List.CancelRequested = true;
  });
  Load("C:\\box\\sub");
  EXPECT_EQ(List.StatusText(), "Reading stopped");
  EXPECT_EQ(List.CurrentFolder(), "C:\\box");
}

TEST_F(FileList, TheNewestReadWins) {
  Platform.Files.AddFile("C:\\box\\sub\\inner");
  Platform.Clock.TickStep = 50;
  // In the names of the first folder, and then among the attributes.
  for (const int messagesBefore : {1, 9}) {
    for (int message = 0; message < messagesBefore; ++message) Platform.Pump.Post([] {});
    Platform.Pump.Post([this] { Load("C:\\box\\sub"); });
    Load();
    EXPECT_EQ(List.CurrentFolder(), "C:\\box\\sub");
    EXPECT_EQ(Names(), Texts{"inner"});
    EXPECT_EQ(List.StatusText(), "1 item (0 folders)");
    EXPECT_EQ(Platform.Watches.Watched(), Texts{"C:\\box\\sub"});
  }

  Platform.Pump.Post([this] {
    EXPECT_EQ(List.ChildCount(RootRow), 0);  // no items of the folder before
    List.SortCommand("des");
  });
  Load();
  EXPECT_EQ(Names(), (Texts{"way", "sub", "plain", "end", "b10.txt", "B9.txt", "a.PDF"}));

  // A sort in the middle leaves no item out, and what was known stays on show meanwhile.
  for (int message = 0; message < 11; ++message) Platform.Pump.Post([] {});
  Platform.Pump.Post([this] {
    for (const char* name : {"b10.txt", "a.PDF"}) EXPECT_NE(Cell(name, HeadingId::Size), "");
    List.SortCommand("asc");
  });
  Platform.Files.AddFile("C:\\box\\a.PDF", "four");
  List.RefreshList();
  EXPECT_EQ(Cell("b10.txt", HeadingId::Size), "1,234,567");
  EXPECT_EQ(Cell("a.PDF", HeadingId::Size), "4");
}

TEST_F(FileList, EscapeStopsTheReadThatRunsAndNoOther) {
  Platform.Clock.TickStep = 50;
  List.CancelRequested = true;
  Load();
  EXPECT_EQ(List.ChildCount(RootRow), 7);

  Platform.Pump.Post([] {});
  Platform.Pump.Post([] {});
  Platform.Pump.Post([this] { List.CancelRequested = true; });
  List.RefreshList();
  EXPECT_EQ(List.ChildCount(RootRow), 2);
  EXPECT_EQ(List.StatusText(), "Reading stopped. 2 items (2 folders)");
  EXPECT_FALSE(List.CancelRequested);
  List.RefreshList();
  EXPECT_EQ(List.ChildCount(RootRow), 7);

  for (int message = 0; message < 9; ++message) Platform.Pump.Post([] {});
  Platform.Pump.Post([this] { List.CancelRequested = true; });
  List.RefreshList();
  EXPECT_EQ(List.ChildCount(RootRow), 7);
  EXPECT_TRUE(List.StatusText().starts_with("Reading stopped. 7 items (2 folders)"));

  for (int message = 0; message < 3; ++message) Platform.Pump.Post([] {});
  Platform.Pump.Post([this] { List.Terminate(); });
  Load("C:\\box");
  EXPECT_TRUE(Platform.Watches.Watched().empty());
  Load();
}

TEST_F(FileList, TellsWhyAFolderCannotBeRead) {
  Load("C:\\none");
  EXPECT_EQ(List.ChildCount(RootRow), 0);
  EXPECT_EQ(List.StatusText(), "Cannot read C:\\none: No such file or directory");
  Platform.Files.AddFolder("C:\\shut").ReadFault = Platform.Files.Denied();
  Load("C:\\shut");
  EXPECT_TRUE(List.StatusText().ends_with("Cannot read C:\\shut: Permission denied"));
  EXPECT_EQ(List.CurrentFolder(), "C:\\shut");
  Platform.Files.At("C:\\box").VanishAfter = 3;
  Load();
  EXPECT_EQ(List.ChildCount(RootRow), 3);
  EXPECT_TRUE(List.StatusText().starts_with(
      "Cannot read C:\\box: No such file or directory. 3 items (1 folder). 3 items could not be"));
  Load("");
}

TEST_F(FileList, FollowsItsFolderOnDisk) {
  Load();
  EXPECT_EQ(Platform.Watches.Watched(), Texts{"C:\\box"});
  Platform.Files.AddFile("C:\\box\\new");
  Platform.Watches.Notify("C:\\box");
  EXPECT_NE(Row(RootRow, "new"), NoRow);

  // What changes during a read is read after it, but not at once and not for ever.
  Platform.Clock.TickStep = 50;
  for (int message = 0; message < 12; ++message) Platform.Pump.Post([] {});
  Platform.Pump.Post([this] {
    Platform.Files.AddFile("C:\\box\\late");
    Platform.Watches.Notify("C:\\box");
    EXPECT_EQ(Row(RootRow, "late"), NoRow);
  });
  List.RefreshList();
  EXPECT_EQ(Row(RootRow, "late"), NoRow);
  ASSERT_EQ(View.CatchUps.size(), 1u);
  EXPECT_GT(View.CatchUps[0], 500);  // as long as the read took
  Platform.Clock.TickStep = 0;
  Platform.Watches.Notify("C:\\box");
  EXPECT_EQ(Row(RootRow, "late"), NoRow);
  List.CatchUp();
  EXPECT_NE(Row(RootRow, "late"), NoRow);
  List.CatchUp();
  EXPECT_EQ(Platform.Files.At("C:\\box").Reads, 4);
  Platform.Watches.Notify("C:\\box");
  EXPECT_EQ(Platform.Files.At("C:\\box").Reads, 5);

  // After Escape the list rests until the user wants it read.
  Platform.Clock.TickStep = 50;
  Platform.Pump.Post([this] {
    Platform.Watches.Notify("C:\\box");
    List.CancelRequested = true;
  });
  List.RefreshList();
  Platform.Clock.TickStep = 0;
  Platform.Watches.Notify("C:\\box");
  List.CatchUp();
  EXPECT_EQ(List.StatusText(), "Reading stopped");
  List.RefreshList();
  EXPECT_EQ(Platform.Files.At("C:\\box").Reads, 7);

  // A stop holds over loads until it is taken back.
  List.WatchStop();
  Load("C:\\box\\sub");
  EXPECT_TRUE(Platform.Watches.Watched().empty());
  List.WatchStart();
  EXPECT_EQ(Platform.Watches.Watched(), Texts{"C:\\box\\sub"});
  List.SetCurrentFolder("C:\\box\\sub\\");
  EXPECT_EQ(List.CurrentFolder(), "C:\\box\\sub");

  Platform.Files.Remove("C:\\box\\sub");
  Platform.Watches.Notify("C:\\box\\sub");
  EXPECT_EQ(List.ChildCount(RootRow), 0);
  EXPECT_TRUE(List.StatusText().ends_with("No such file or directory"));

  Platform.Watches.Refuses = true;
  Load();
  EXPECT_EQ(List.ChildCount(RootRow), 8);
  List.Terminate();
}

}  // namespace
}  // namespace tarnwell::lister
