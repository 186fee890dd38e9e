#include "TestLists.h"
#include "lister/ListInput.h"
#include "lists/ListCommands.h"
#include "lists/ListEventHandler.h"

namespace tarnwell::lists {
namespace {

using workspace::Ids;

class ListEventHandlerTest : public testing::Test, public TestLists {
 protected:
  ListEventHandlerTest() {
    Platform.Files.AddFolder("C:\\Data\\Sub\\Deep\\Deeper");
    for (const int pane : {0, 1}) {
      SetUpPane(pane, "C:\\Data\\Sub");
      Nav.LoadFolders(pane);
    }
  }
  Ids Lists() const { return {Space.CurrentList, Space.ActiveList, Space.EnteredList}; }
};

TEST_F(ListEventHandlerTest, KeepsWhichListIsActive) {
  Space.Lists[101].Focused();
  EXPECT_EQ(Lists(), (Ids{101, 101, 101}));
  EXPECT_TRUE(Space.Lists[101].IsActive());
  Space.Form.cboCommand.Text = "dir";
  Space.Lists[101].Focused();  // nothing new, and so nothing is drawn
  EXPECT_EQ(Space.Form.cboCommand.Text, "dir");
  Host.SetScreenPointer(forms::MousePointer::WestEast);
  Space.Lists[1].MouseUp({});
  EXPECT_EQ(Lists(), (Ids{101, 1, 101}));
  EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Default);
  Handler.TitleColorAsked(100);
  Space.Lists[100].MoveCurrent(Row(100, "Deep"));
  EXPECT_EQ(Lists(), (Ids{100, 100, 101}));
  EXPECT_TRUE(Space.Lists[100].IsActive() && !Space.Lists[101].IsActive());

  // Escape stops the active list, with a folder list also its file list.
  for (const Ids& stopped : {Ids{1, 101}, Ids{101}, Ids{0, 100}, Ids{}}) {
    Space.ForEachList([](lister::ListerControl& list) { list.CancelRequested = false; });
    Space.ActiveList = stopped.empty() ? lister::NoList : stopped[0];
    Handler.EscapeKey();
    Ids found;
    Space.ForEachList([&](lister::ListerControl& list) {
      if (list.CancelRequested) found.push_back(list.Id());
    });
    EXPECT_EQ(found, stopped);
  }
}

TEST_F(ListEventHandlerTest, FollowsTheUserThroughFolders) {
  Space.Lists[100].Activate(Row(100, "Deep"));
  EXPECT_EQ(Pane(0).CurrentPath, "C:\\Data\\Sub\\Deep");
  EXPECT_NE(Row(100, "Deeper"), lister::NoRow);
  EXPECT_EQ(Space.Lists.Folders(1).CurrentFolder(), "C:\\Data\\Sub");
  Space.Lists[100].KeyDown(lister::BackspaceKey, 0);
  for (const char* above : {"C:\\Data", "C:\\", "C:\\"}) {  // and no farther
    Handler.UpFolderButton(0);
    EXPECT_EQ(Space.Lists.Folders(0).CurrentFolder(), above);
    EXPECT_EQ(Space.Lists.Files(0).CurrentFolder(), above);
  }
  Space.Lists[0].ChooseDrive("D");
  EXPECT_EQ(Space.Form.TitleBar[0].Text, "D:\\");
  EXPECT_EQ(Space.Lists.Files(0).CurrentFolder(), "D:\\");
  // A file list's folder is noted for its pane and handed to nobody.
  Space.Lists[101].SetCurrentFolder("D:\\");
  Handler.DriveSelected(101);
  EXPECT_EQ(Pane(1).CurrentPath, "D:\\");
  EXPECT_EQ(Space.Form.TitleBar[1].Text, "C:\\Data\\Sub\\");
  Handler.StatusMessage(100, "No such file");
  EXPECT_EQ(Messages.Texts, (workspace::Texts{"No such file"}));
  Handler.CloseAsked(1);
  EXPECT_EQ(Closed, 1);
}

TEST_F(ListEventHandlerTest, KeysAndWheelGoToTheActiveList) {
  Platform.Files.AddFile("C:\\Data\\Sub\\a.txt");
  Space.Lists[100].RefreshList();
  Space.ActiveList = 100;
  Space.Lists[101].KeyDown(lister::DownKey, 0);  // reported by another list
  Space.Lists[100].KeyDown(lister::DownKey, 0);
  EXPECT_EQ(Space.Lists[100].CurrentRow(), Row(100, "a.txt"));
  EXPECT_TRUE(Space.Lists[100].Look(Row(100, "a.txt")).IsSelected);
  Space.Lists[100].KeyDown(lister::SpaceKeyCode, 0);
  EXPECT_TRUE(Space.SpaceHeld);
  EXPECT_FALSE(Space.Lists[100].Look(Row(100, "a.txt")).IsSelected);
  Space.Lists[100].KeyDown(lister::UpKey, 0);  // takes the next one out as well
  EXPECT_FALSE(Space.Lists[100].Look(Row(100, "Deep")).IsSelected);
  Space.Lists[100].KeyUp(lister::SpaceKeyCode);
  EXPECT_FALSE(Space.SpaceHeld);

  bool locked = true;
  Handler.MouseLockAsked(1, locked);
  Space.ForEachList([](lister::ListerControl& list) { EXPECT_TRUE(list.MouseLocked); });
  Handler.DragBegun(101, {});
  EXPECT_EQ(Space.CurrentList, 101);
  EXPECT_EQ(Space.ResizeAction, "DragStart");
  Handler.DragEnded(101, {});
  EXPECT_EQ(Space.ResizeAction, "");
}

TEST_F(ListEventHandlerTest, HiddenItemsAreShownInOpenPanesAtOnce) {
  for (const int pane : {0, 1}) {
    Platform.Files.AddFile("C:\\Data\\Sub\\secret").IsHidden = true;
    Space.Lists.Files(pane).RefreshList();
  }
  Pane(1).Status = workspace::Closed;
  ListCommands commands(Space);
  commands.HiddenShowHide();
  EXPECT_TRUE(Space.Form.Menus["mnuHidden"].Checked);
  EXPECT_NE(Row(100, "secret"), lister::NoRow);
  EXPECT_EQ(Row(101, "secret"), lister::NoRow);
  EXPECT_TRUE(Space.Lists[101].ShowHidden);
  commands.HiddenShowHide();
  EXPECT_EQ(Row(100, "secret"), lister::NoRow);
}

}  // namespace
}  // namespace tarnwell::lists
