#include "ListFixture.h"
#include "lister/list/ListInput.h"

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

  std::string Cell(const std::string& name, HeadingId heading) const {
    return Rows.CellText(Row(RootRow, name), heading);
  }
  // Runs the message at every pump from now on.
  void PostAlways(const std::function<void()>& message) {
    Platform.Pump.Post([=, this] { PostAlways(message), message(); });
  }
  void Notify(const Texts& names) { Platform.Watches.Notify("C:\\box", {names, false, false}); }
  Texts Known() const {
    Texts names = Names();
    std::erase_if(names, [&](const auto& name) { return Cell(name, HeadingId::Size).empty(); });
    return names;
  }
  Texts SortKeyTexts() const {
    Texts keys;
    std::string key, direction;
    for (int at = 0; List.GetSortKey(at, key, direction); ++at) keys.push_back(key + direction);
    return keys;
  }
};

TEST_F(FileList, TellsOfLinksOfCutItemsAndWhyNothingIsShown) {
  Load();
  const auto facts = [this](const std::string& name) {
    const RowState state = Rows.StateOf(Row(RootRow, name));
    return std::string(state.IsLink ? "link " : "") + (state.IsBroken ? "broken " : "") +
           (state.IsCut ? "cut " : "") + Rows.LinkNote(Row(RootRow, name));
  };
  Platform.Cut.Take(std::string("C:\\box\\sub\0C:\\box\\end\0C:\\a.PDF\0", 32));
  EXPECT_EQ(facts("sub"), "cut ");
  EXPECT_EQ(facts("way"), "link Link to C:\\box\\sub");
  EXPECT_EQ(facts("end"), "link broken cut Broken link to C:\\none");
  EXPECT_EQ(facts("a.PDF"), "");
  Platform.Files.AddFolder("C:\\none");
  Notify({"end"});
  EXPECT_EQ(facts("end"), "link cut Link to C:\\none");

  const auto note = [this] {
    const EmptyNote found = Rows.NoteOfEmptiness();
    return found.Text + (found.ByFilter ? "!" : "");
  };
  EXPECT_EQ(note(), "");
  List.User().SetFilterText("zz");
  EXPECT_EQ(note(), "The filter hides all 7 items here!");
  Platform.Files.AddFolder("C:\\few");
  Load("C:\\few");
  EXPECT_EQ(note(), "This folder is empty");
  Platform.Files.AddFile("C:\\few\\.one").IsHidden = true;
  Platform.Watches.Notify("C:\\few", {{".one"}, false, false});
  List.CatchUp();
  EXPECT_EQ(note(), "The only item here is hidden");
  Platform.Files.Remove("C:\\few");
  List.RefreshList();
  EXPECT_EQ(note(), "Cannot read C:\\few: No such file or directory");
}

TEST_F(FileList, ShowsTheItemsOfItsFolder) {
  List.ShowHidden = true;
  Platform.Forms.GroupMark = Platform.Forms.DateMark = ".";
  Platform.Forms.DecimalMark = ",";
  Load();
  EXPECT_EQ(Names(),
            (Texts{"sub", "way", ".profile", "a.PDF", "B9.txt", "b10.txt", "end", "plain"}));
  EXPECT_EQ(List.Shown().Status,
            "8 items (2 folders), 1,2 MiB. 1 item could not be read: Permission denied");

  const std::pair<const char*, const char*> cells[] = {
      {"sub", "||Folder||rw-r--r--"},
      {"way", "||Folder|L|rw-r--r--"},
      {"end", "0||Link|RL|---------"},
      {".profile", "0||File|H|rw-r--r--"},
      {"B9.txt", "3|txt|TXT file|R|r-xr-xr-x"},
      {"b10.txt", "1.234.567|txt|TXT file||rw-r--r--"},
      {"plain", "||File||"}};
  for (const auto& [name, expected] : cells) {
    std::string texts = Cell(name, HeadingId::Size);
    for (const auto heading : {HeadingId::Extension, HeadingId::FileType, HeadingId::Attributes,
                               HeadingId::Permissions}) {
      texts += "|" + Cell(name, heading);
    }
    EXPECT_EQ(texts, expected) << name;
  }
  EXPECT_EQ(Cell("a.PDF", HeadingId::DateLastModified), "1970.01.02 00:00:00");
  EXPECT_EQ(Cell("B9.txt", HeadingId::DateCreated), "");
  EXPECT_EQ(Cell("a.PDF", HeadingId::Path), "C:\\box");

  const auto opened = [&] {
    Texts files;
    for (const auto& each : std::exchange(Platform.Launcher.Requests, {}))
      files.push_back(each.File);
    return files;
  };
  Rows.Activate(Row(RootRow, "way"));
  Rows.Activate(Row(RootRow, "a.PDF"));
  Rows.Activate(Row(RootRow, "end"));
  Platform.Launcher.Fault = Platform.Files.Denied();
  Rows.Activate(Row(RootRow, ".profile"));
  EXPECT_EQ(Events.Take(),
            (Texts{"OpenChildFolder C:\\box\\way in C:\\box",
                   "StatusMessage Cannot open end: The link leads to no file and no folder",
                   "StatusMessage Cannot open .profile: Permission denied"}));
  EXPECT_EQ(opened(), (Texts{"C:\\box\\a.PDF", "C:\\box\\.profile"}));

  // Enter on one of the selected files means them all and no folder, elsewhere the cursor alone.
  const auto enter = [&](const std::string& name, int shift) {
    Rows.MoveCurrent(Row(RootRow, name));
    Events.Take();
    Input.KeyDown(EnterKey, shift);
    return opened();
  };
  List.SelectAll();
  EXPECT_EQ(enter("a.PDF", 0),
            (Texts{"C:\\box\\.profile", "C:\\box\\a.PDF", "C:\\box\\B9.txt", "C:\\box\\b10.txt"}));
  const std::string told = Events.Take().at(0);
  EXPECT_NE(told.find("open end: The link leads to no file"), std::string::npos) << told;
  EXPECT_NE(told.find("open b10.txt: Permission denied"), std::string::npos) << told;
  List.SelectAll("none");
  EXPECT_EQ(enter("a.PDF", ShiftDown), Texts{"C:\\box\\a.PDF"});
  Events.Take();
  CheckNoRow(RowId{9});
}

TEST_F(FileList, SortsByItsKeysInTurn) {
  Load();
  EXPECT_EQ(SortKeyTexts(), Texts{"sNameasc"});
  List.SetProperty("ActiveHeading", std::int32_t{3});  // the size
  List.SortCommand("des");
  List.Columns().DoubleClick(1, true);
  List.Columns().DoubleClick(1, true);  // the extension keeps its place
  EXPECT_EQ(SortKeyTexts(), (Texts{"sSizedes", "sExtensiondes"}));
  EXPECT_EQ(Names(), (Texts{"sub", "way", "b10.txt", "B9.txt", "a.PDF", "end", "plain"}));

  for (const char* direction : {"asc", "des", "asc"}) {
    List.Columns().DoubleClick(0, false);
    EXPECT_EQ(SortKeyTexts(), Texts{std::string("sName") + direction});
  }
  List.SortCommand("sideways");
  List.AddSortKey(1, "sType", "asc");
  List.AddSortKey(2, "sNone", "asc");
  List.AddSortKey(2, "sSize", "up");
  for (const int level : {3, -1}) List.AddSortKey(level, "sSize", "asc");
  EXPECT_EQ(SortKeyTexts(), (Texts{"sNameasc", "sTypeasc"}));

  // Attributes that come late are put in order once, at the end.
  Load("D:\\");
  List.AddSortKey(0, "sSize", "des");
  View.Reorders = 0;
  Platform.Clock.TickStep = 50;
  Load();
  EXPECT_EQ(Names(), (Texts{"sub", "way", "b10.txt", "a.PDF", "B9.txt", "end", "plain"}));
  EXPECT_EQ(View.Reorders, 1);
}

TEST_F(FileList, RefreshKeepsTheCursorAtItsPlace) {
  Load();
  // Of the item that goes, be it the last; where it stays is shown by any change.
  for (const char* name : {"b10.txt", "plain"}) {
    Rows.MoveCurrent(Row(RootRow, name));
    Platform.Files.Remove(std::string("C:\\box\\") + name);
    List.RefreshList();
    EXPECT_EQ(Rows.CurrentRow(), Row(RootRow, "end"));
  }
  // A folder that was visited before has the cursor where it was.
  Rows.MoveCurrent(Row(RootRow, "B9.txt"));
  Load("C:\\box\\sub");
  Load();
  EXPECT_EQ(Rows.CurrentRow(), Row(RootRow, "B9.txt"));
}

TEST_F(FileList, FollowsAnyChangeAndKeepsRows) {
  // The view checks each step. Now and then so much changes that rows are gathered first. What is
  // looked at by name must come out as a whole read has it.
  const std::string folder = "C:\\box\\";
  for (const char* name : {"sub", "way", "end", "plain"}) Platform.Files.Remove(folder + name);
  List.Columns().Toggle(static_cast<int>(HeadingId::Comments));
  Load();
  Rows.MoveCurrent(Row(RootRow, "a.PDF"));
  const int resets = View.Resets, moves = View.CurrentChanges;
  std::mt19937 random(7);
  std::map<std::string, RowId> rows{{"a.PDF", Rows.CurrentRow()}};
  const auto check = [&] {
    View.Check();
    for (const auto& [name, row] : rows) {
      const RowId now = Row(RootRow, name);
      EXPECT_TRUE(now == row || now == NoRow) << name;
    }
    EXPECT_EQ(Rows.CurrentRow(), rows.at("a.PDF"));
  };
  const auto shown = [&] {
    Texts texts{List.Shown().Status};
    for (const std::string& name : Names()) {
      texts.push_back(name + " " + Cell(name, HeadingId::Size) + Cell(name, HeadingId::Comments));
    }
    return texts;
  };
  for (int round = 0; round < 160; ++round) {
    Texts changed;
    for (int change = round % 5 == 0 ? 90 : 3; change > 0; --change) {
      // Two names may be equal but for a zero.
      const std::string name = (random() % 2 == 0 ? "n0" : "n") + std::to_string(random() % 75);
      changed.push_back(name);
      const auto kind = random() % 4;
      const bool isThere = Platform.Files.Exists(folder + name);
      if (kind % 2 == 0) rows.erase(name);
      if (kind == 0) Platform.Files.Remove(folder + name);
      if (kind == 1) {
        Platform.Files.AddFile(folder + name, std::string(random() % 9, 'x'))
            .ExtendedAttributes[platform::ExtendedAttribute::Comment] =
            std::string(random() % 3, 'c');
      }
      if (kind == 2) Platform.Files.AddFile(folder + name).IsHidden = true;
      if (kind == 3 && !isThere) Platform.Files.AddFolder(folder + name);
    }
    if (round % 7 == 0) List.AddSortKey(0, round % 2 == 0 ? "sSize" : "sName", "des");
    if (round % 11 == 0)
      List.User().SetFilterText(round % 3 == 0 ? "a*;*1?" : round % 3 == 1 ? "" : "a*;n#");
    const int reads = Platform.Files.At(folder).Reads;
    if (round % 2 == 0) {
      Notify(changed);
      EXPECT_EQ(Platform.Files.At(folder).Reads, reads + 1);  // opened
      check();
      const Texts before = shown();
      View.Cells.clear();
      const int reorders = View.Reorders;
      List.RefreshList();
      EXPECT_EQ(shown(), before);
      EXPECT_EQ(View.Reorders, reorders);
      EXPECT_TRUE(View.Cells.empty());
    } else {
      List.RefreshList();
    }
    check();
    for (const std::string& name : Names()) rows[name] = Row(RootRow, name);
  }
  EXPECT_EQ(View.Resets, resets);
  EXPECT_EQ(View.CurrentChanges, moves);
}

TEST_F(FileList, ReadsWhatIsOnTheScreenFirst) {
  const auto name = [](int number) { return "f" + std::to_string(number); };
  for (int number = 100; number < 200; ++number) {
    Platform.Files.AddFile("D:\\many\\" + name(number), "x");
  }
  Platform.Clock.TickStep = 50;
  View.Visible = {40, 44};
  // What is known after each five, and where the user scrolls then; after ten the order is turned.
  const struct {
    int First, Last;
    RowRange Visible;
  } steps[] = {{140, 144, {70, 74}},
               {170, 174, {70, 74}},
               {125, 129, {98, 99}},
               {100, 103, {98, 99}}};  // the pages around too
  std::size_t step = 0;
  PostAlways([&] {
    const Texts known = Known();
    if (step == std::size(steps) || known.size() != 5 * (step + 1)) return;
    for (int number = steps[step].First; number <= steps[step].Last; ++number) {
      EXPECT_EQ(std::ranges::count(known, name(number)), 1) << number;
    }
    View.Visible = steps[step++].Visible;
    if (step == 2) List.SortCommand("des");
  });
  Load("D:\\many");
  EXPECT_EQ(step, std::size(steps));

  // The look at an item of another machine lets messages through, too.
  Texts looked;
  Platform.Clock.TickStep = 0;
  Platform.Files.OnLook = [&](std::string_view of) {
    looked.emplace_back(of);
    if (looked.size() == 5) List.User().SetFilterText("f12");
  };
  View.Visible = {0, 20};
  Load("D:\\many");
  EXPECT_EQ(looked.size(), 100U);
  EXPECT_EQ(Texts(looked.begin() + 5, looked.begin() + 8), (Texts{"f129", "f128", "f127"}));
}

TEST_F(FileList, GivesWayInEveryPhaseOfARead) {
  Platform.Files.AddFile("C:\\box\\sub\\inner");
  Platform.Clock.TickStep = 50;
  List.SetProperty("ShowColor", true);
  List.Columns().Toggle(static_cast<int>(HeadingId::Comments));
  // Among the names, the attributes and the notes. The newest load wins, and none nests.
  std::set<std::string> phases;
  int depth = 0;
  const auto goOn = [&] {
    EXPECT_EQ(++depth, 1);
    const std::string& status = List.Shown().Status;
    phases.insert(status.substr(0, status.find(':')));
    EXPECT_EQ(Rows.ChildCount(RootRow) == 0, status.starts_with("Reading names"));
    for (const char* folder : {"D:\\", "C:\\box\\sub"}) Load(folder);
    List.SetCurrentFolder("C:\\box\\sub\\");
    --depth;
  };
  for (int pump = 1;; ++pump) {
    const auto ran = PostAt(pump, goOn);
    for (int more = 0; more < 3; ++more) Platform.Pump.Post(goOn);
    Load();
    if (!*ran) break;
    EXPECT_EQ(Names(), Texts{"inner"});
    EXPECT_EQ(List.Shown().Status, "1 item (0 folders)");
    EXPECT_EQ(Platform.Watches.Watched(), Texts{"C:\\box\\sub"});
  }
  Platform.Pump.Drop();
  EXPECT_EQ(phases, (std::set<std::string>{"Reading names", "Reading details", "Reading notes"}));

  // Escape stops the read that runs, and one from before is no reason to stop.
  for (int pump = 1;; ++pump) {
    List.CancelRequested = true;
    const auto ran = PostAt(pump, [this] { List.CancelRequested = true; });
    List.RefreshList();
    EXPECT_FALSE(List.CancelRequested);
    if (!*ran) break;
    EXPECT_TRUE(List.Shown().Status.starts_with("Reading stopped")) << pump;
    EXPECT_EQ(Rows.ChildCount(RootRow), std::min(pump - 1, 7));
  }
  EXPECT_EQ(Known().size(), 4u);

  // A sort or a filter in the middle leaves no item out, and what was known stays on show.
  for (int pump = 1;; ++pump) {
    Platform.Files.AddFile("C:\\box\\a.PDF", std::string(static_cast<std::size_t>(pump), 'x'));
    const auto ran = PostAt(pump, [&] {
      EXPECT_EQ(Cell("b10.txt", HeadingId::Size), "1,234,567");
      List.SortCommand(pump % 2 == 0 ? "des" : "asc");
      List.User().SetFilterText("*a*");
      EXPECT_EQ(Rows.ChildCount(RootRow), 3);
    });
    List.RefreshList();
    List.User().SetFilterText("");
    const Texts up{"sub", "way", "a.PDF", "B9.txt", "b10.txt", "end", "plain"};
    const Texts down{"way", "sub", "plain", "end", "b10.txt", "B9.txt", "a.PDF"};
    EXPECT_EQ(Names(), pump % 2 == 0 || !*ran ? down : up) << pump;
    EXPECT_EQ(Cell("a.PDF", HeadingId::Size), std::to_string(pump));
    if (!*ran && pump % 2 != 0) break;
  }
  for (int pump = 2;; pump += 3) {
    ListerControl other(103, Platform.Services(), Events);
    std::string folder = "C:\\box";
    const auto ran = PostAt(pump, [&] { other.Terminate(); });
    other.LoadFolderContents(folder, true);
    if (!*ran) break;
    EXPECT_EQ(Platform.Watches.Watched(), Texts{"C:\\box"});
  }
}

TEST_F(FileList, GivesWayWhileItSorts) {
  for (int number = 0; number < 40'000; ++number) {
    Platform.Files.AddFile("D:\\many\\" + std::to_string(number), number % 2 == 0 ? "x" : "");
  }
  Load("D:\\many");
  EXPECT_EQ(List.Shown().Status, "40,000 items (0 folders), 19.5 KiB");
  EXPECT_LE(View.Cells.size(), 4u);  // the view is told ranges
  Platform.Clock.TickStep = 50;
  int step = 0;
  PostAlways([&] {
    if (List.Shown().Status != "Sorting") return;
    if (++step == 1) List.SortCommand("asc");
    if (step != 2) return;
    const int count = Rows.ChildCount(RootRow);
    List.User().SetFilterText("#");
    EXPECT_EQ(Rows.ChildCount(RootRow), count);  // no row comes or goes under the sort
  });
  List.SortCommand("des");
  EXPECT_GT(step, 3);  // also while the keys are compared
  EXPECT_EQ(Names(), (Texts{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}));
  List.AddSortKey(0, "sSize", "des");
  EXPECT_EQ(Names(), (Texts{"0", "2", "4", "6", "8", "1", "3", "5", "7", "9"}));

  Platform.Pump.Drop();
  PostAlways([&] {
    if (List.Shown().Status == "Sorting") Load("C:\\box\\sub");
  });
  List.SortCommand("des");
  EXPECT_EQ(List.CurrentFolder(), "C:\\box\\sub");
  EXPECT_EQ(List.Shown().Status, "0 items (0 folders)");
}

TEST_F(FileList, ShowsColoursAndCommentsWhenTheyAreWanted) {
  const auto notes =
      [this](const std::string& name) -> std::map<platform::ExtendedAttribute, std::string>& {
    return Platform.Files.At("C:\\box\\" + name).ExtendedAttributes;
  };
  const auto colour = [this](const std::string& name) {
    return Rows.StateOf(Row(RootRow, name)).Colour;
  };
  constexpr auto colourNote = platform::ExtendedAttribute::Colour,
                 comment = platform::ExtendedAttribute::Comment;
  notes("a.PDF") = {{colourNote, "red"}, {comment, "mine\n"}};
  notes("sub") = {{colourNote, "dark green"}};
  Load();
  const int resets = View.Resets;
  List.SetProperty("ShowColor", true);
  EXPECT_EQ(colour("a.PDF"), ItemColour::Red);
  EXPECT_EQ(colour("sub"), ItemColour::DarkGreen);
  List.SetProperty("FileCountMax", std::int32_t{4});  // there are five files
  for (const char* filter : {"", "a", ""}) {
    List.User().SetFilterText(filter);
    EXPECT_EQ(colour("a.PDF"), ItemColour::Default);
  }
  List.Columns().Toggle(static_cast<int>(HeadingId::Comments));
  EXPECT_EQ(Cell("a.PDF", HeadingId::Comments), "mine\u240a");
  EXPECT_EQ(View.Resets, resets);

  // Changes on disk count for the limit, and bring notes that are new.
  notes("B9.txt") = {{colourNote, "blue"}, {comment, "yours"}};
  Platform.Files.Remove("C:\\box\\plain");
  Notify({"plain", "B9.txt", "a.PDF"});
  EXPECT_EQ(colour("B9.txt"), ItemColour::Blue);
  EXPECT_EQ(Cell("B9.txt", HeadingId::Comments), "yours");
  List.AddSortKey(0, "sComments", "des");
  Load("D:\\");
  Load();
  EXPECT_EQ(Names()[2], "B9.txt");
  List.SetProperty("ShowColor", false);
  EXPECT_EQ(colour("a.PDF"), ItemColour::Default);

  // What is asked for in the middle of a read comes too.
  Platform.Clock.TickStep = 50;
  PostAt(3, [this] { List.SetProperty("ShowColor", true); });
  List.RefreshList();
  EXPECT_EQ(colour("sub"), ItemColour::DarkGreen);
}

TEST_F(FileList, FiltersWithoutTheDisk) {
  Platform.Files.Space = {3 << 20, 4 << 20};
  Load();
  Rows.MoveCurrent(Row(RootRow, "B9.txt"));
  const int reads = Platform.Files.At("C:\\box").Reads, told = View.FilterChanges;
  List.User().SetFilterText("*.T?T; sub");
  EXPECT_EQ(Names(), (Texts{"sub", "B9.txt", "b10.txt"}));
  EXPECT_EQ(List.Shown().Status,
            "3 of 7 items (1 folder), 1.2 MiB. 1 item could not be read: "
            "Permission denied. 3.0 MiB free");
  List.SelectAll();
  EXPECT_TRUE(
      List.Shown().Status.starts_with("3 of 7 items (1 folder), 1.2 MiB. 3 selected, 1.2 MiB"));
  List.User().SetFilterText("10");
  EXPECT_TRUE(List.Shown().Status.starts_with("1 of 7 items (0 folders), 1.2 MiB. 1 selected"));
  List.User().SetFilterText("none");
  List.User().SetFilterText("");
  EXPECT_EQ(Rows.CurrentRow(), Row(RootRow, "B9.txt"));
  List.User().SetExtensionFilter("txt");
  List.User().SetFilterText("b;d;w");  // takes folders by their names, whatever the extension
  EXPECT_EQ(Names(), (Texts{"sub", "way", "B9.txt", "b10.txt"}));
  List.User().SetFilterText("");
  List.User().SetExtensionFilter("pdf");
  EXPECT_EQ(Names(), (Texts{"sub", "way", "a.PDF"}));
  EXPECT_EQ(Platform.Files.At("C:\\box").Reads, reads);
  EXPECT_GE(View.FilterChanges, told + 5);

  Platform.Files.AddFolder("C:\\box\\folder.d");
  for (const char* name : {"c.pdf", "c.TXT", "c.7z", "d.10", "e."}) {
    Platform.Files.AddFile("C:\\box\\" + std::string(name));
  }
  List.RefreshList();
  EXPECT_EQ(Names(), (Texts{"folder.d", "sub", "way", "a.PDF", "c.pdf"}));
  Texts choices;
  for (const ExtensionChoice& choice : List.User().ExtensionChoices()) {
    choices.push_back(choice.Extension + std::to_string(choice.Count));
  }
  EXPECT_EQ(choices, (Texts{"7z1", "101", "pdf2", "txt3"}));
  Load("C:\\box\\sub");
  EXPECT_EQ(List.Shown().Filter.Extension(), "");
}

TEST_F(FileList, TellsWhyAFolderCannotBeRead) {
  Load("C:\\none");
  EXPECT_EQ(List.Shown().Status, "Cannot read C:\\none: No such file or directory");
  Platform.Files.At("C:\\box").VanishAfter = 3;
  Load();
  EXPECT_TRUE(List.Shown().Status.starts_with(
      "Cannot read C:\\box: No such file or directory. 3 items (1 folder). 3 items could not be"));
  Load("");
}

TEST_F(FileList, RestsAfterEscapeAndWhileWatchesAreStopped) {
  Load();
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
  EXPECT_EQ(List.Shown().Status, "Reading stopped");
  List.RefreshList();
  EXPECT_EQ(Platform.Files.At("C:\\box").Reads, 3);

  // A stop holds over loads until it is taken back.
  List.WatchStop();
  Load("C:\\box\\sub");
  EXPECT_TRUE(Platform.Watches.Watched().empty());
  List.WatchStart();
  EXPECT_EQ(Platform.Watches.Watched(), Texts{"C:\\box\\sub"});
  List.Terminate();
}

TEST_F(FileList, LooksItselfWhereNobodyTells) {
  const auto add = [this](const char* name) {
    Platform.Files.AddFile("C:\\box\\" + std::string(name));
  };
  // Whether the item is there once the list has looked.
  const auto shows = [this](const char* name, LookReason reason = LookReason::User) {
    List.LookAtDisk(reason);
    return Row(RootRow, name) != NoRow;
  };
  const auto isTold = [this] {
    return List.Shown().Status.find("not followed") != std::string::npos;
  };
  Platform.Clock.Time = 10'000'000'000;
  Load();
  add("one");
  EXPECT_FALSE(shows("one"));  // the watch will tell
  List.WatchStop();
  List.Visible = false;
  EXPECT_FALSE(shows("one"));
  List.Visible = true;
  Platform.OpenBrackets = 1;
  EXPECT_FALSE(shows("one"));
  Platform.OpenBrackets = 0;
  EXPECT_TRUE(shows("one", LookReason::Idle) && View.Looks.back() == 1000 && !isTold());
  add("two");
  List.NextSelected();
  EXPECT_EQ(Row(RootRow, "two"), NoRow);
  List.PrepareSelectionKeyboard();
  EXPECT_NE(Row(RootRow, "two"), NoRow);
  // A folder may change again so soon that its stamp stays.
  std::int64_t& stamp = Platform.Files.At("C:\\box").Modified;
  const std::int64_t now = stamp = Platform.Clock.Time;
  List.RefreshList();
  add("own"), stamp = now;
  EXPECT_TRUE(!shows("own") && shows("own", LookReason::Operation));
  add("late"), stamp = now;
  EXPECT_FALSE(shows("late"));
  Platform.Clock.Time += 2'000'000'000;
  EXPECT_TRUE(shows("late", LookReason::Idle));

  // A share is asked without waiting, and not again before it answers.
  Platform.Stamps.Afar = "C:\\box";
  List.WatchStart();
  Load();
  EXPECT_TRUE(isTold() && View.Looks.back() == 5000 && Platform.Watches.Watched().empty());
  add("far");
  EXPECT_FALSE(shows("far"));
  Platform.Clock.Tick += 5000;
  EXPECT_FALSE(shows("far", LookReason::Idle));
  ASSERT_EQ(Platform.Stamps.Unanswered.size(), 1U);
  Platform.Stamps.Unanswered[0]();
  EXPECT_NE(Row(RootRow, "far"), NoRow);
  Load("C:\\box\\sub");
  EXPECT_FALSE(isTold());
}

TEST_F(FileList, NoticesAnotherFolderInPlaceOfItsOwn) {
  Load();
  for (const std::string item : {"mounted", "back", "elsewhere"}) {
    const bool isByLink = item == "elsewhere";
    if (isByLink) Platform.Stamps.ByLink = "C:\\box";
    if (isByLink) List.RefreshList();
    Platform.Files.Remove("C:\\box");
    Platform.Files.AddFile("C:\\box\\" + item);
    List.Visible = item != "back";
    isByLink ? List.LookAtDisk(LookReason::Idle) : List.DrivesChanged();
    EXPECT_EQ(Names(), Texts{item});
  }
}

TEST_F(FileList, LooksAtNamedChangesWhenItIsTime) {
  Load();
  std::vector<CompareRecord> none;
  std::int32_t mode = 0;
  List.CompareAgainst(none, mode);
  const auto marked = [this](const std::string& name) {
    return Rows.StateOf(Row(RootRow, name)).Marks.OnlyHere;
  };
  Platform.Files.AddFile("C:\\box\\a.PDF", "more");
  View.Cells.clear();
  Notify({"a.PDF", "B9.txt"});
  EXPECT_FALSE(marked("a.PDF"));
  EXPECT_TRUE(marked("B9.txt") && marked("sub"));
  ASSERT_EQ(View.Cells.size(), 1u);
  EXPECT_TRUE(View.Cells[0].First == 2 && View.Cells[0].Last == 2);

  // Notices that come during a read or an update wait; many names cost one read.
  Platform.Clock.TickStep = 50;
  const int reads = Platform.Files.At("C:\\box").Reads;
  PostAt(12, [this] {
    Platform.Files.AddFile("C:\\box\\late");
    Notify({"late"});
  });
  List.RefreshList();
  EXPECT_FALSE(marked("B9.txt"));
  EXPECT_EQ(Row(RootRow, "late"), NoRow);
  EXPECT_EQ(View.CatchUps, std::vector<int>{200});
  PostAt(1, [this] {
    Platform.Files.Remove("C:\\box\\B9.txt");
    Notify({"B9.txt"});
  });
  List.CatchUp();
  EXPECT_NE(Row(RootRow, "late"), NoRow);
  EXPECT_NE(Row(RootRow, "B9.txt"), NoRow);
  List.CatchUp();
  EXPECT_EQ(Row(RootRow, "B9.txt"), NoRow);
  EXPECT_EQ(Platform.Files.At("C:\\box").Reads, reads + 3);
  Platform.Clock.TickStep = 0;
  Texts names;
  for (int number = 0; number < 10'000; ++number) names.push_back("z" + std::to_string(number));
  Platform.Files.AddFile("C:\\box\\z9");
  Notify(names);
  EXPECT_NE(Row(RootRow, "z9"), NoRow);
  EXPECT_EQ(Platform.Files.At("C:\\box").Reads, reads + 4);

  // Another load, or the end, in the middle of looking.
  Platform.Clock.TickStep = 50;
  PostAt(1, [this] { Load("D:\\"); });
  Notify({"late", "z9"});
  EXPECT_EQ(List.Shown().Status, "0 items (0 folders)");
  Load();
  Platform.Files.Remove("C:\\box\\late");
  PostAt(1, [this] { List.CancelRequested = true; });
  Notify({"late", "z9"});
  EXPECT_NE(Row(RootRow, "late"), NoRow);
  EXPECT_TRUE(List.Shown().Status.starts_with("Reading stopped"));

  // An item of another spelling, where both names lead to it; and an Escape from long before.
  Platform.Clock.TickStep = 0;
  Load();
  List.CancelRequested = true;
  Platform.Files.At("C:\\box\\z9").Name = "Z9";
  Notify({"z9", "Z9"});
  List.CatchUp();
  EXPECT_EQ(Row(RootRow, "z9"), NoRow);
  EXPECT_NE(Row(RootRow, "Z9"), NoRow);
}

}  // namespace
}  // namespace tarnwell::lister
