#include "commands/Keyboard.h"
#include "lister/list/ListInput.h"
#include "lists/TestLists.h"

namespace tarnwell::commands {
namespace {

using lister::CtrlDown;
using lister::ShiftDown;

class KeyboardTest : public testing::Test, public lists::TestLists, public KeyActions {
 protected:
  KeyboardTest() : Keys(Space, Messages, *this) {
    for (const char* file : {"C:\\Data\\a", "C:\\Data\\b"}) Platform.Files.AddFile(file);
    for (const int pane : {0, 1}) OpenPane(pane, "C:\\Data");
    Space.CurrentList = Space.ActiveList = 100;
    Space.KeyArmed = true;
  }

  void EscapeKey() override { Done += "escape "; }
  void RenameItem(bool byKey) override { Done += byKey ? "rename " : "?"; }
  void OpenTitleMenu() override { Done += "title "; }
  void RenameItems() override {}
  void FindFiles() override {}
  void OpenHelp() override { throw std::runtime_error("no help"); }
  void ShowShellMenu(shellmenu::MenuMode mode) override {
    Done += "menu" + std::to_string(static_cast<int>(mode)) + " ";
  }
  void DeleteSelection(bool permanent) override { Done += permanent ? "DELETE " : "delete "; }
  void FileOperate(const std::string& action, lister::ListId source, lister::ListId target,
                   const std::string& folder) override {
    Done += action + std::to_string(source) + ">" + std::to_string(target) + folder + " ";
  }
  // What the key did, and whether the next one may act.
  std::string Press(int code, int shift = 0) {
    Done.clear();
    Keys.KeyDown(code, shift);
    return Done + (Space.KeyArmed ? "armed" : "held");
  }

  Keyboard Keys;
  std::string Done;
};

TEST_F(KeyboardTest, ActsByItsTableAndOnceForAHeldKey) {
  struct Case {
    int Code, Shift;
    const char* Done;
  };
  for (const Case& each : {Case{'A', 0, "armed"},
                           {'A', CtrlDown, "held"},
                           {lister::DownKey, 0, "held"},
                           {lister::UpKey, CtrlDown, "held"},
                           {lister::F2Key, 0, "rename armed"},
                           {lister::F2Key, ShiftDown, "rename held"},
                           {'K', CtrlDown, "armed"},
                           {'L', ShiftDown, "held"},
                           {'X', 0, "armed"},
                           {'X', CtrlDown, "menu2 armed"},
                           {'C', CtrlDown, "menu1 armed"},
                           {'V', CtrlDown, "menu3 armed"},
                           {lister::DeleteKey, 0, "delete armed"},
                           {lister::DeleteKey, ShiftDown | CtrlDown, "DELETE held"},
                           {lister::EscapeKey, 0, "escape armed"}}) {
    for (const bool armed : {true, false}) {
      Keys.KeyUp();
      Space.KeyArmed = armed;
      // Deleting repeats, and Escape stops work at any time.
      const bool acts = armed || each.Code == lister::DeleteKey || each.Code == lister::EscapeKey;
      const std::string done = Press(each.Code, each.Shift);
      if (armed) {
        EXPECT_EQ(done, each.Done) << each.Code;
      } else {
        EXPECT_EQ(Done.empty(),
                  !acts || std::string_view(each.Done).find(' ') == std::string::npos);
        EXPECT_FALSE(Space.KeyArmed);
      }
    }
  }
  // What came up in another window is not held any more.
  for (const bool down : {true, false}) {
    Space.SpaceHeld = true;
    Keys.KeyUp();
    EXPECT_EQ(Press('K', ShiftDown), "held");
    Keys.Activated({down, down});
    EXPECT_EQ(Press('C', CtrlDown), down ? "held" : "menu1 armed");
    EXPECT_EQ(Space.SpaceHeld, down);
  }
  Space.Form.ActiveControl = workspace::KeyboardFocus::CommandLine;
  Keys.KeyUp();
  for (const int code : {int{lister::EscapeKey}, int{lister::DeleteKey}, int{'A'}}) {
    EXPECT_EQ(Press(code, CtrlDown), "armed");
  }
  Space.Form.ActiveControl = workspace::KeyboardFocus::List;
  EXPECT_EQ(Press(lister::F1Key), "armed");
  EXPECT_EQ(Messages.Texts,
            (workspace::Texts{"An error occurred while handling which keys were pressed."}));
}

TEST_F(KeyboardTest, SelectsInTheActiveListAndCopiesFromTheCurrentOne) {
  lister::ListerControl& files = Space.Lists[100];
  Press('A', CtrlDown);
  EXPECT_EQ(files.Input().SelectedRanges().front().Last, 1);
  Keys.KeyUp();
  Space.ActiveList = 0;
  Press('A', CtrlDown);
  EXPECT_EQ(files.Input().SelectedRanges().front().Last, 1);

  // Copying takes the item under the cursor when nothing is selected; the current list's.
  Keys.KeyUp();
  files.SelectAll("none");
  files.Rows().MoveCurrent(Row(100, "b"));
  files.SelectAll("none");
  Press('C', CtrlDown);
  EXPECT_EQ(files.FirstSelected(), "C:\\Data\\b");

  // The active list learns of Shift and Ctrl, but not on old systems.
  Space.ActiveList = 100;
  for (const int shift : {0, int{ShiftDown}, int{CtrlDown}, int{ShiftDown}}) {
    std::int16_t up = lister::UpKey, down = lister::DownKey;
    bool spaceHeld = false;
    files.TakeFocus();
    files.ArrowKey(up, spaceHeld);
    Keys.KeyUp();
    EXPECT_EQ(Press('K', shift), shift == ShiftDown ? "held" : "armed");
    files.ArrowKey(down, spaceHeld);
    const lister::RowRange selected = files.Input().SelectedRanges().front();
    EXPECT_EQ(selected.First, shift == 0 || Space.IsWin9x ? 1 : 0);
    Space.IsWin9x = shift == CtrlDown;
  }

  Space.ShellVerbMode = 0;
  Keys.KeyUp();
  EXPECT_EQ(Press('X', CtrlDown), "armed");
  Space.CurrentList = 101;
  EXPECT_EQ(Press('V', CtrlDown), "move100>101C:\\Data\\ armed");
  EXPECT_EQ(Space.InternalClipSource, lister::NoList);
}

}  // namespace
}  // namespace tarnwell::commands
