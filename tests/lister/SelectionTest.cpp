#include "ListFixture.h"
#include "lister/list/DropRules.h"
#include "lister/list/ListInput.h"
#include "lister/tree/FolderTree.h"

namespace tarnwell::lister {
namespace {

class Selection : public ListFixture {
 protected:
  explicit Selection(ListId id = 102) : ListFixture(id) {
    Events.Answers = &List;
    View.Page = 4;
  }

  void Make(const Texts& names) {
    for (const std::string& name : names) Platform.Files.AddFile("C:\\box\\" + name);
    Load();
  }
  void Load() {
    ListFixture::Load();
    Events.Take();
  }
  RowPointer At(int position, RowPart part, int shift = 0, int button = 1) const {
    const bool none = position < 0 || position >= Rows.ChildCount(RootRow);
    return {none ? NoRow : Rows.Child(RootRow, position),
            position,
            none ? RowPart::None : part,
            {button, shift, 15, 30}};
  }
  RowPointer On(RowId row, int button = 1) const {
    return {row, Rows.PositionOf(row), RowPart::Item, {button, 0, 15, 30}};
  }
  void Click(int position, RowPart part, int shift = 0) {
    Input.MouseDown(At(position, part, shift));
    Input.MouseUp(At(position, part, shift));
  }
  // Down at the first position, then over the others.
  void Pull(const std::vector<int>& positions, RowPart part, int shift = 0) {
    Input.MouseDown(At(positions[0], part, shift));
    for (std::size_t at = 1; at < positions.size(); ++at) {
      Input.MouseMoved(At(positions[at], part, shift));
    }
  }
  std::string Current() const { return Rows.CellText(Rows.CurrentRow(), HeadingId::Name); }
  // Kind, folder and name of what an action by mouse would work on.
  std::string Clicked() const {
    std::string folder, name;
    std::int32_t kind = -1;
    List.GetClickedItem(folder, name, false, kind);
    return std::to_string(kind) + " " + folder + "+" + name;
  }
  // The positions that are selected, by both ways to ask.
  std::string Marks() const {
    std::string marks, ranges;
    for (int at = 0; at < Rows.ChildCount(RootRow); ++at) {
      marks += Rows.StateOf(Rows.Child(RootRow, at)).IsSelected ? '#' : '.';
    }
    ranges.resize(marks.size(), '.');
    for (const RowRange range : Input.SelectedRanges()) {
      for (int at = range.First; at <= range.Last; ++at) ranges[static_cast<std::size_t>(at)] = '#';
    }
    EXPECT_EQ(marks, ranges);
    return marks;
  }
};

TEST_F(Selection, GoesToWhatAnOperationBrought) {
  Make({"a", "b", "c"});
  List.WatchStop();
  const auto place = [this](const std::string& name, const std::string& source = "") {
    Platform.Files.AddFile("C:\\box\\" + name);
    List.PlaceCursor({{source, "C:\\box\\" + name}, {"", "C:\\else\\a"}},
                     [&] { return name == "f"; });
    return Current() + Marks();
  };
  EXPECT_EQ(place("bb"), "bb..#.");
  EXPECT_EQ(place("d"), "d....#");
  List.SelectAll();
  EXPECT_EQ(place("e"), "e#####.");  // what was chosen before stays
  Click(0, RowPart::Item);
  Click(3, RowPart::Item, CtrlDown);
  Events.Take();
  EXPECT_EQ(place("f", "C:\\box\\a"), "f......#");
  EXPECT_EQ(Events.Take("ItemFocused"), Texts{"ItemFocused 6"});
  EXPECT_EQ(View.Scrolls, 4);
}

// What a user expects, by names alone.
struct Model {
  Texts Rows;
  std::set<std::string> Selected;
  std::string Current, Anchor;

  int PositionOf(const std::string& name) const {
    return static_cast<int>(std::find(Rows.begin(), Rows.end(), name) - Rows.begin());
  }
  void Choose(int position, int shift) {
    const std::string& row = Rows[static_cast<std::size_t>(position)];
    if ((shift & ShiftDown) != 0) {
      if (PositionOf(Anchor) == static_cast<int>(Rows.size())) Anchor = Current;
      if (PositionOf(Anchor) == static_cast<int>(Rows.size())) Anchor = row;
      if (shift == ShiftDown) Selected.clear();
      const auto [first, last] = std::minmax({PositionOf(Anchor), position});
      Selected.insert(Rows.begin() + first, Rows.begin() + last + 1);
      return;
    }
    Anchor = row;
    if (shift == 0) Selected = {row};
    if (shift == CtrlDown && Selected.erase(row) == 0) Selected.insert(row);
  }
};

TEST_F(Selection, IsWhatUsersExpectWhateverTheyDo) {
  for (int number = 0; number < 24; ++number) Make({"f" + std::to_string(number)});
  std::mt19937 random(11);
  const auto pick = [&](int below) { return static_cast<int>(random() % unsigned(below)); };
  constexpr int masks[] = {0, ShiftDown, CtrlDown, ShiftDown | CtrlDown};
  constexpr int keys[] = {UpKey, DownKey, HomeKey, EndKey, PageUpKey, PageDownKey};
  Model model;
  for (int round = 0; round < 3000; ++round) {
    model.Rows = Names();
    model.Current = Current();
    const int count = static_cast<int>(model.Rows.size());
    const int place = pick(count), shift = masks[pick(4)], steps[] = {-1, 1, -99, 99, -4, 4};
    const std::string row = model.Rows[static_cast<std::size_t>(place)];
    const std::set<std::string> before = model.Selected;
    const int changes = View.SelectionChanges;
    bool once = true;
    switch (pick(6)) {
      case 0:
        Click(place, pick(2) == 0 ? RowPart::Item : RowPart::Rest, shift);
        model.Choose(place, shift);
        break;
      case 1:
        Click(place, RowPart::Gap, shift);
        model.Choose(place, CtrlDown);
        break;
      case 2: {
        const int key = pick(6), here = model.PositionOf(model.Current);
        Input.KeyDown(keys[key], shift);
        int there = std::clamp(here + steps[key], 0, count - 1);
        if (here == count) there = keys[key] == EndKey ? count - 1 : 0;
        if (shift != CtrlDown) model.Choose(there, shift);
        EXPECT_EQ(Current(), model.Rows[static_cast<std::size_t>(there)]);
        break;
      }
      case 3:
        if (pick(8) != 0) break;
        if (pick(2) == 0) {
          Input.KeyDown('A', CtrlDown);
          model.Selected = {model.Rows.begin(), model.Rows.end()};
        } else {
          Click(count, RowPart::None, shift);
          if (shift == 0) model.Selected.clear();
        }
        break;
      case 4:
        once = false;
        if (count > 8) Platform.Files.Remove("C:\\box\\" + row);
        if (pick(2) == 0) Platform.Files.AddFile("C:\\box\\n" + std::to_string(round));
        pick(2) == 0 ? List.RefreshList() : Platform.Watches.Notify("C:\\box");
        break;
      case 5:
        once = false;
        List.User().SetFilterText(pick(2) == 0 ? "" : "*" + std::to_string(pick(10)) + "*");
        if (Rows.ChildCount(RootRow) > 0) break;
        List.User().SetFilterText("");
        model.Selected.clear();  // what was taken off the screen is not selected any more
        break;
    }
    std::set<std::string> left;
    std::string marks;
    for (const std::string& name : Names()) {
      marks += model.Selected.contains(name) ? '#' : '.';
      if (marks.back() == '#') left.insert(name);
    }
    model.Selected = left;
    ASSERT_EQ(Marks(), marks) << round;
    EXPECT_TRUE(!once || View.SelectionChanges - changes == (before != model.Selected)) << round;
  }
}

TEST_F(Selection, FollowsTheMouseAndEndsEachGestureOnEveryWay) {
  Make({"a", "b", "c", "d", "e", "f"});
  Click(2, RowPart::Item);
  EXPECT_EQ(Events.Take(),
            (Texts{"ListFocused", "TitleColorAsked", "ItemFocused 2", "MouseReleased"}));
  // Rows that a sweep leaves again get back what they had; the ends of the list hold it up.
  Pull({0, 4, 1}, RowPart::Gap);
  EXPECT_EQ(Marks(), "###...");
  Input.MouseMoved(At(9, RowPart::None));
  EXPECT_EQ(Marks(), "######");
  Platform.Files.Remove("C:\\box\\b");  // rows go, and their numbers serve others
  Platform.Files.AddFile("C:\\box\\g");
  List.RefreshList();
  Input.MouseMoved(At(-1, RowPart::None));
  EXPECT_EQ(Marks(), "##....");
  Input.MouseDown(At(3, RowPart::Item, 0, 2));  // no menu meanwhile
  Input.MouseUp({});
  EXPECT_FALSE(List.MouseLocked);
  EXPECT_EQ(Events.Take(), (Texts{"ListFocused", "TitleColorAsked", "ItemFocused 0", "Locked",
                                  "Unlocked", "MouseReleased"}));

  // A frame; whatever ends it lets the other lists go, and what comes after it does nothing.
  const auto frame = [&](int from, int shift, const std::function<void()>& end) {
    Pull({from, 2}, RowPart::Rest, shift);
    EXPECT_EQ(Input.Action(), MouseAction::Band);
    const std::string marks = Marks();
    end();
    EXPECT_FALSE(List.MouseLocked);
    Events.Take();
    Input.MouseMoved(At(0, RowPart::Item));
    Input.MouseUp({});
    EXPECT_EQ(Events.Take().back(), "MouseReleased");
    return marks + " " + Marks();
  };
  EXPECT_EQ(frame(6, 0, [&] { EXPECT_TRUE(Input.KeyDown(EscapeKey, 0)); }), "..#### ##....");
  EXPECT_FALSE(Input.KeyDown(EscapeKey, 0));
  EXPECT_EQ(frame(6, ShiftDown, [&] { Click(6, RowPart::None); }), "###### ......");  // an end lost
  EXPECT_EQ(frame(0, 0, [&] { ListFixture::Load("D:\\"); }), "###... ");
  Load();
  EXPECT_EQ(frame(1, CtrlDown, [&] { Input.MouseUp({}); }), ".##... .##...");

  // Several are dragged; a click without a drag breaks the selection up when the button comes up.
  Pull({2, 4, 5}, RowPart::Item);
  Input.MouseUp({});
  EXPECT_EQ(Events.Take(), (Texts{"ListFocused", "TitleColorAsked", "ItemFocused 2", "DragBegun",
                                  "DragMoved", "DragEnded", "MouseReleased"}));
  EXPECT_EQ(Marks() + std::to_string(View.Drags), ".##...1");
  Click(2, RowPart::Item, CtrlDown);
  EXPECT_EQ(Marks(), ".#....");

  // The other button keeps what is selected where it comes down on that or on nothing.
  Events.Take();
  for (const int place : {1, 7}) {
    Input.MouseDown(At(place, RowPart::Rest, 0, 2));
    EXPECT_EQ(Events.Clicked.Folder + Events.Clicked.Name, place == 1 ? "C:\\box\\c" : "C:\\box\\");
    EXPECT_EQ(Marks(), ".#....");
  }
  Input.MouseDown(At(0, RowPart::Item, 0, 4));
  Input.MouseDown(At(0, RowPart::Item, 0, 2));
  EXPECT_EQ(Marks(), "#.....");
  Input.MouseDown(At(7, RowPart::Rest, 0, 2));  // for what is selected
  EXPECT_EQ(Events.Clicked.UsePath, false);
  List.SelectAll("none");
  Input.MouseDown(At(7, RowPart::Rest, 0, 2));  // for the folder
  EXPECT_EQ(Events.Clicked.Folder + Events.Clicked.Path, "C:\\box\\");
  EXPECT_TRUE(Events.Clicked.UsePath);
  Input.MouseDown(At(0, RowPart::Item, 0, 2));
  List.MouseLocked = true;
  Events.Take();
  Pull({3, 4}, RowPart::Gap);
  Input.MouseDown(At(3, RowPart::Item, 0, 2));
  EXPECT_TRUE(Events.Take().empty());
  EXPECT_EQ(Marks(), "#.....");
  List.MouseLocked = false;
  frame(1, 0, [&] { List.Terminate(); });
}

TEST_F(Selection, TakesKeysAndTypedText) {
  Platform.Files.AddFolder("C:\\box\\sub");
  Make({"bar", "Bat", "b c", "moon", "ss", "s\xC3\xBCn"});  // sub, b c, bar, Bat, moon, ss, sün
  const auto press = [&](int key, int shift = 0) { return Input.KeyDown(key, shift); };
  // With Space held, arrows make of the rows what Space made of the first.
  for (const int key : {HomeKey, SpaceKeyCode, SpaceKeyCode, DownKey, DownKey}) press(key);
  EXPECT_EQ(Marks(), ".......");
  Input.KeyUp(SpaceKeyCode);
  for (const int key : {SpaceKeyCode, DownKey, DownKey, UpKey}) press(key);
  Input.KeyUp(SpaceKeyCode);
  EXPECT_EQ(Marks(), "..##...");
  press(InsertKey);
  EXPECT_EQ(Marks() + Current(), "..#....moon");
  List.SelectAll("none");
  List.PrepareSelectionKeyboard();
  EXPECT_EQ(Marks(), "....#..");

  const auto type = [&](const char* text) {
    Input.TypeText(text);
    return Current() + "|" + List.Shown().Status;
  };
  press(HomeKey);
  EXPECT_EQ(type("B"), "b c|Find: B");
  EXPECT_EQ(type("B"), "bar|Find: B");
  EXPECT_EQ(type("a"), "bar|No item begins with BBa");
  // A letter that is taken back, before the key goes up; the key held down takes letters alone.
  press(BackspaceKey);
  press(BackspaceKey);
  Platform.Clock.Tick += 999;
  EXPECT_EQ(type("a"), "bar|Find: Ba");
  const auto step = [&](int shift) {
    press('G', shift);
    return Current() + "|" + List.Shown().Status;
  };
  EXPECT_EQ(step(CtrlDown), "Bat|Find: Ba");
  EXPECT_EQ(step(CtrlDown), "bar|Find: Ba");
  for (const int key : {DownKey, UpKey}) press(key);
  EXPECT_EQ(step(CtrlDown | ShiftDown), "Bat|Find: Ba");
  Events.Take();
  for (int i = 0; i < 3; ++i) press(BackspaceKey);
  EXPECT_EQ(Events.Take(), Texts{"ItemFocused 3"});
  Input.ResetStart();
  press(UpKey);
  Platform.Clock.Tick += 1000;
  EXPECT_EQ(type("b"), "Bat|Find: b");
  EXPECT_EQ(type("a"), "Bat|Find: ba");
  EXPECT_EQ(Marks(), "...#...");
  EXPECT_TRUE(press(EscapeKey) && !press(EscapeKey));
  EXPECT_EQ(List.Shown().Status.find("Find"), std::string::npos);
  EXPECT_EQ(type("S\xC3\xBC"), "s\xC3\xBCn|Find: S\xC3\xBC");
  press(EscapeKey);
  EXPECT_EQ(type("s"), "sub|Find: s");
  EXPECT_EQ(type("s"), "ss|Find: ss");  // the whole text first, then its letter
  EXPECT_EQ(type("s"), "s\xC3\xBCn|Find: s");
  List.ShowStatus("News");
  Platform.Clock.Tick += 1000;
  Events.Take();
  press(BackspaceKey);  // the text is not on show any more
  EXPECT_EQ(Events.Take(), Texts{"UpFolderKey 8"});
  press(EscapeKey);
  EXPECT_EQ(type("b"), "b c|Find: b");
  EXPECT_FALSE(press(SpaceKeyCode));  // within a name
  EXPECT_EQ(type(" "), "b c|Find: b ");
  List.SetProperty("ActiveString", std::string());
  press(SpaceKeyCode);
  EXPECT_EQ(Marks(), ".......");

  Events.Take();
  press(EnterKey, CtrlDown);
  press(HomeKey, CtrlDown);
  press('N', CtrlDown | ShiftDown);
  press('Q', CtrlDown);
  for (const int key : {EnterKey, BackspaceKey, F3Key}) press(key);
  EXPECT_FALSE(press('Q', 0) || press(EnterKey, AltDown));
  EXPECT_EQ(
      Events.Take(),
      (Texts{"CommandTextAsked \"C:\\box\\b c\"", "ItemFocused 0", "NewFolderAsked", "CloseAsked",
             "OpenChildFolder C:\\box\\sub in C:\\box", "UpFolderKey 8", "ListKeyDown 114"}));
  for (const char* path : {"", "(empty)", "C:\\gone", "C:\\box\\b c", "D:\\"}) {
    Events.Bookmark = path;
    press('0', CtrlDown);
  }
  EXPECT_EQ(Events.Take(),
            (Texts{"BookmarkAsked 9", "BookmarkAsked 9", "BookmarkAsked 9",
                   "StatusMessage Cannot open C:\\gone: it is no longer there", "BookmarkAsked 9",
                   "StatusMessage Cannot open C:\\box\\b c: Not a directory", "BookmarkAsked 9",
                   "OpenChildFolder D:\\ in D:\\"}));
}

TEST_F(Selection, SaysWhatAnActionWorksOn) {
  Platform.Files.AddFolder("C:\\box\\sub.d");
  EXPECT_EQ(Clicked() + List.TargetFolder() + List.PasteFolder(), "0 +");
  Make({"a.tar.gz", ".rc"});  // sub.d, .rc, a.tar.gz
  EXPECT_EQ(List.FirstSelected() + List.ActiveItemName() + List.DuplicateBaseName(), "");
  EXPECT_EQ(List.NextSelected() + Clicked(), "end8 C:\\box\\+");
  Click(2, RowPart::Item);
  EXPECT_EQ(Clicked(), "4 C:\\box\\+a.tar.gz");
  EXPECT_EQ(List.DuplicateBaseName(), "C:\\box\\a.tar");
  EXPECT_EQ(List.FirstSelected(), "C:\\box\\a.tar.gz");
  Click(1, RowPart::Item, ShiftDown);
  EXPECT_EQ(List.DuplicateBaseName(), "C:\\box\\.rc");
  EXPECT_EQ(List.FirstSelected(), ".rc, a.tar.gz");
  EXPECT_EQ(List.ActiveItemName(), std::string("C:\\box\\.rc\0C:\\box\\a.tar.gz\0\0", 28));

  // The clicked item stays the one that is meant while the menu's action runs.
  Input.MouseDown(At(0, RowPart::Item, 0, 2));
  List.BeginContextAction();
  EXPECT_TRUE(Rows.StateOf(Row(RootRow, "sub.d")).IsTarget);
  Click(1, RowPart::Item);
  List.PrepareSelectionMouse();
  EXPECT_EQ(Marks() + Clicked(), "#..2 C:\\box\\+sub.d");
  List.EndAction();
  EXPECT_EQ(Clicked() + " " + List.TargetFolder(), "8 C:\\box\\+ C:\\box\\");

  Events.Take();
  List.User().DragOver(Row(RootRow, "sub.d"));
  EXPECT_TRUE(Rows.StateOf(Row(RootRow, "sub.d")).IsTarget);
  List.User().DropOn(List.User().DropTarget(Row(RootRow, "sub.d")), {"C:\\x", "x", "copy", 100});
  EXPECT_FALSE(Rows.StateOf(Row(RootRow, "sub.d")).IsTarget);
  EXPECT_EQ(Events.Take(), (Texts{"DropSourceSet 100", "ItemsDropped"}));
  List.User().DropOn("C:\\box\\sub.d", {"C:\\x", "x", "copy", NoList, 2});
  EXPECT_EQ(Events.Take(), (Texts{"ItemsDropped",
                                  "StatusMessage 2 dropped items are no files of this computer and "
                                  "could not be taken."}));
  EXPECT_EQ(List.DropFolder(), "C:\\box\\sub.d\\");
  List.EndDrop();
  EXPECT_EQ(List.DropFolder(), "");
  List.User().DropOn(List.User().DropTarget(Row(RootRow, ".rc")), {"x", "x", "", NoList});
  EXPECT_EQ(List.DropFolder(), "C:\\box\\");
  // What the mouse took out of the selection, or a key has left behind, is not meant any more.
  List.SelectAll("none");
  for (const int place : {0, 1, 2, 1}) Click(place, RowPart::Gap);
  List.BeginContextAction();
  List.PrepareSelectionMouse();
  List.EndAction();
  EXPECT_EQ(Marks(), "#.#");
  Click(0, RowPart::Item);
  Input.KeyDown(DownKey, 0);
  EXPECT_EQ(Clicked(), "4 C:\\box\\+.rc");
  Platform.Files.Remove("C:\\box");
  EXPECT_EQ(List.TargetFolder() + List.PasteFolder(), "");
}

class FolderSelection : public Selection {
 protected:
  FolderSelection() : Selection(2) {
    for (const char* path : {"a", "box\\Beta", "d"})
      Platform.Files.AddFolder("C:\\" + std::string(path));
    LoadDrive();
    Events.Take();
  }
  RowId Find(const std::string& name) const { return Row(FolderTree::TopRow, name); }
};

TEST_F(FolderSelection, GoesByItsCursorAndActsOnWhatWasClicked) {
  const auto press = [&](int key, int shift = 0) {
    EXPECT_TRUE(Input.KeyDown(key, shift));
    return Current() + " ";
  };
  std::string way;
  for (const int key : {DownKey, DownKey, RightKey, DownKey, DownKey, UpKey, UpKey, LeftKey,
                        DownKey, HomeKey, UpKey, EndKey, LeftKey, RightKey, PageDownKey}) {
    way += press(key);
  }
  EXPECT_EQ(way, "a box box Beta d Beta box box d C:\\ C:\\ d C:\\ a d ");
  press(UpKey);
  press(EnterKey);
  Input.TypeText("be");
  EXPECT_EQ(Current() + List.Shown().Status, "BetaFind: be");
  EXPECT_EQ(List.FirstSelected(), "C:\\box\\Beta");
  List.SelectionCursor = 0;
  EXPECT_EQ((Texts{List.NextSelected(), List.NextSelected()}), (Texts{"C:\\box\\Beta", "end"}));
  Events.Take();
  press('N', CtrlDown | ShiftDown);
  EXPECT_EQ(Events.Take(), Texts{"NewFolderAt C:\\box\\Beta\\"});

  // A right click leaves the open folder as it is.
  Input.MouseDown(On(Find("a"), 2));
  EXPECT_EQ(Events.Take(), (Texts{"ListFocused", "TitleColorAsked", "RightClicked C:\\a"}));
  EXPECT_TRUE(Events.Clicked.UsePath);
  EXPECT_EQ(Events.Clicked.Folder, "C:\\a");
  EXPECT_EQ(Clicked() + Current(), "2 C:\\+aBeta");
  EXPECT_EQ(List.TargetFolder() + List.TargetFolder(true), "C:\\a\\C:\\box\\Beta\\");
  Platform.Files.Remove("C:\\a");  // its number may serve another
  Platform.Files.AddFolder("C:\\aa");
  List.RefreshList();
  EXPECT_EQ(Clicked(), "0 +");
  EXPECT_EQ(List.TargetFolder(), "C:\\box\\Beta\\");
  Input.MouseDown(On(FolderTree::TopRow, 2));
  EXPECT_EQ(Clicked() + Events.Clicked.Path, "1 C:\\+C:\\");
  EXPECT_FALSE(Events.Clicked.UsePath);

  List.User().DropOn(List.User().DropTarget(Find("d")), {"x", "x", "", NoList});
  EXPECT_EQ(List.DropFolder(), "C:\\d\\");
  List.User().DropOn(List.User().DropTarget(NoRow), {"x", "x", "", NoList});
  EXPECT_EQ(List.DropFolder(), "");

  // Text that is typed while the branch with the cursor is still being read.
  Input.MouseDown(On(Find("d")));
  List.OpenFolder(0, "C:\\box");
  EXPECT_EQ(List.TargetFolder(), "C:\\box\\");
  Rows.Collapse(Find("box"));
  Platform.Clock.TickStep = 60;
  Platform.Pump.Post([this] { Input.TypeText("d"); });
  List.OpenFolder(0, "C:\\box\\Beta");
  Platform.Clock.TickStep = 0;
  EXPECT_EQ(Current(), "d");
  List.OpenFolder(0, "C:\\box\\Beta");

  // What is dragged is what the button came down on, and never a drive.
  Events.Take();
  Input.MouseDown(On(Find("d")));
  Input.MouseMoved(On(Find("box")));
  EXPECT_EQ(List.FirstSelected(), "C:\\d");
  Input.MouseUp({});
  Input.MouseDown(On(FolderTree::TopRow));
  Input.MouseMoved(On(Find("box")));
  EXPECT_EQ(Events.Take(), (Texts{"ListFocused", "TitleColorAsked", "FolderSelected 2", "DragBegun",
                                  "DragEnded", "MouseReleased", "ListFocused", "TitleColorAsked"}));
  Rows.MoveCurrent(FolderTree::TopRow);
  EXPECT_EQ(List.DuplicateBaseName() + List.FirstSelected(), "C:");
  EXPECT_EQ(List.ActiveItemName(), "");
  Events.Take();
  Events.Bookmark = "D:\\";
  press('2', CtrlDown);
  EXPECT_EQ(Events.Take(), (Texts{"BookmarkAsked 1", "DriveSelected 2"}));
}

TEST(DropRules, RefuseWhatWouldLoseOrChangeNothing) {
  const base::PathSyntax& windows = base::PathSyntax::Windows();
  const std::string items("C:\\a\\Sub\0C:\\a\\x\0", 16);
  struct Case {
    const char* Folder;
    int Asks, Copies;  // whether a plain drop and one with Ctrl are taken
  };
  for (const Case& each : {Case{"C:\\b", 1, 1},
                           {"C:\\A\\", 0, 1},
                           {"C:\\a\\sub", 0, 0},
                           {"C:\\a\\Sub\\Deep", 0, 0},
                           {"C:\\a\\Sub2", 1, 1},
                           {"C:\\", 1, 1},
                           {"", 0, 0}}) {
    for (const char* action : {"", "move"}) {
      EXPECT_EQ(MayDrop(items, each.Folder, action, windows), each.Asks) << each.Folder;
    }
    EXPECT_EQ(MayDrop(items, each.Folder, "copy", windows), each.Copies) << each.Folder;
  }
  EXPECT_TRUE(MayDrop(items + "C:\\b\\y" + '\0', "C:\\b", "", windows));  // not all are there
  EXPECT_FALSE(MayDrop(std::string("C:\\\0", 4), "C:\\", "", windows));
  EXPECT_FALSE(MayDrop("", "C:\\b", "copy", windows));
}

}  // namespace
}  // namespace tarnwell::lister
