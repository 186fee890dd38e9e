#include "TestLists.h"
#include "lister/ListerUser.h"
#include "lister/ShadowView.h"
#include "lister/list/ListInput.h"
#include "lists/ListCommands.h"

namespace tarnwell::lists {
namespace {

using List = lister::ListerControl;
using workspace::Ids;

struct WheelView : lister::ShadowView {
  using ShadowView::ShadowView;
  void TakeFocus() override { Told += "focus "; }
  void ScrollRows(int rows) override { Told += rows < 0 ? "up " : "down "; }
  std::string Told;
};

class ListEventHandlerTest : public testing::Test, public TestLists {
 protected:
  ListEventHandlerTest() {
    Platform.Files.AddFolder("C:\\Data\\Sub\\Deep\\Deeper");
    for (const int pane : {0, 1}) OpenPane(pane, "C:\\Data\\Sub");
  }
  template <typename Test>
  Ids ListsThat(Test test) {
    Ids lists;
    Space.ForEachList([&](List& list) {
      if (test(list)) lists.push_back(list.Id());
    });
    return lists;
  }
  Ids Lists() const { return {Space.CurrentList, Space.ActiveList, Space.EnteredList}; }
};

TEST_F(ListEventHandlerTest, KeepsWhichListIsActive) {
  Space.Lists[101].Input().Focused();
  EXPECT_EQ(Lists(), (Ids{101, 101, 101}));
  EXPECT_TRUE(Space.Form.Menus["mnuHeadingSize"].Checked);
  EXPECT_EQ(Space.Form.txtCurrentPath.Text, "C:\\Data\\Sub\\");
  Space.Form.cboCommand.Text = "dir";
  for (const int pointer : {9, 5}) Handler.PointerAsked(1, pointer);  // 5 is none
  EXPECT_EQ(Space.Form.MousePointer, forms::MousePointer::WestEast);
  Space.Lists[1].Input().MouseUp({});
  EXPECT_EQ(Lists(), (Ids{101, 1, 101}));
  EXPECT_EQ(Space.Form.MousePointer, forms::MousePointer::Default);
  Handler.TitleColorAsked(100);
  Space.Lists[100].Rows().MoveCurrent(Row(100, "Deep"));
  EXPECT_EQ(Lists(), (Ids{100, 100, 101}));
  EXPECT_TRUE(Space.Lists[100].Shown().IsActive && !Space.Lists[101].Shown().IsActive);
  EXPECT_EQ(Space.Form.cboCommand.Text, "");
  Space.Lists[0].Input().Focused();
  EXPECT_FALSE(Space.Form.Menus["mnuHeadingSize"].Checked);

  // Escape stops the active list, with a folder list also its file list.
  for (const Ids& stopped : {Ids{1, 101}, Ids{101}, Ids{0, 100}, Ids{}}) {
    Space.ForEachList([](List& list) { list.CancelRequested = false; });
    Space.ActiveList = stopped.empty() ? lister::NoList : stopped[0];
    Handler.EscapeKey();
    EXPECT_EQ(ListsThat([](List& list) { return list.CancelRequested; }), stopped);
  }
}

TEST_F(ListEventHandlerTest, ReleasedMouseRedrawsForAnotherListAndExpandsAnotherPane) {
  std::map<lister::ListId, lister::ShadowView> views;
  Space.ForEachList([&](List& list) { views.try_emplace(list.Id(), list); });
  const auto redrawnFor = [&](lister::ListId list) {
    for (auto& [id, view] : views) view.Repaints = 0;
    Space.Lists[list].Input().MouseUp({});
    return ListsThat([&](List& each) { return views.at(each.Id()).Repaints > 0; });
  };
  for (const lister::ListId list : Ids{100, 0}) {
    EXPECT_EQ(redrawnFor(list), (Ids{static_cast<lister::ListId>(100 - list), 1, 101}));
    EXPECT_EQ(redrawnFor(list), Ids{});
  }
  Space.ForEachList([](List& list) {
    list.SetDragGraphicsOn(true);
    list.SetHoverGraphicsOn(true);
  });
  Space.Lists[0].Input().MouseUp({});
  EXPECT_EQ(ListsThat([](List& list) { return list.Shown().DragGraphicsOn; }), Ids{});
  EXPECT_EQ(ListsThat([](List& list) { return list.Shown().HoverGraphicsOn; }), Ids{0});

  Space.Form.Menus["mnuAutoExpandOn"].Checked = true;
  for (const lister::ListId list : Ids{100, 101, 1, 0}) {  // pane 0 is known already
    Pane(0).PercentHeightH = Pane(1).PercentHeightH = 0.5F;
    Space.Lists[list].Input().MouseUp({});
    const bool expands = list == 101 || list == 0;
    EXPECT_FLOAT_EQ(Pane(lister::PaneOf(list)).PercentHeightH, expands ? 0.7F : 0.5F) << list;
  }
  Layout.TitleMouseMove(1);
  Space.Lists[0].Input().MouseUp({});
  EXPECT_FLOAT_EQ(Pane(0).PercentHeightH, 0.7F);
}

TEST_F(ListEventHandlerTest, FollowsTheUserThroughFolders) {
  Space.Lists[100].Rows().Activate(Row(100, "Deep"));
  EXPECT_EQ(Pane(0).CurrentPath, "C:\\Data\\Sub\\Deep");
  EXPECT_EQ(Space.Lists.Folders(1).CurrentFolder(), "C:\\Data\\Sub");
  Space.Lists[100].Input().KeyDown(lister::BackspaceKey, 0);
  for (const char* above : {"C:\\Data", "C:\\", "C:\\"}) {  // and no farther
    Handler.UpFolderButton(0);
    EXPECT_EQ(Space.Lists.Folders(0).CurrentFolder(), above);
    EXPECT_EQ(Space.Lists.Files(0).CurrentFolder(), above);
  }
  Space.Lists[0].User().ChooseDrive("D");
  EXPECT_EQ(Space.Lists.Files(0).CurrentFolder(), "D:\\");
  // A file list's folder is noted for its pane and handed to nobody.
  Space.Lists[101].SetCurrentFolder("D:\\");
  Handler.DriveSelected(101);
  EXPECT_EQ(Pane(1).CurrentPath, "D:\\");
  EXPECT_EQ(Space.Form.TitleBar[1].Text, "C:\\Data\\Sub\\");
  Space.Settings.Bookmarks[9].Path = "C:\\Data";
  Space.Lists[101].Input().KeyDown('0', lister::CtrlDown);
  EXPECT_EQ(Space.Form.TitleBar[1].Text, "C:\\Data\\");
  Space.Settings.Bookmarks[0].Path = "D:\\far\\off";  // on another drive
  Platform.Files.AddFolder("D:\\far\\off");
  Space.Lists[101].Input().GoToBookmark(0);
  EXPECT_EQ(Space.Form.TitleBar[1].Text, "D:\\far\\off\\");
  std::string path;
  for (std::int16_t slot : Ids{-1, 10}) {
    EXPECT_THROW(Handler.BookmarkAsked(0, slot, path), std::out_of_range);
  }
  Handler.StatusMessage(100, "No such file");
  EXPECT_EQ(Messages.Texts, (workspace::Texts{"No such file"}));
  Handler.CloseAsked(1);
  EXPECT_EQ(Closed, 1);
}

TEST_F(ListEventHandlerTest, KeysAndWheelGoToTheActiveList) {
  Platform.Files.AddFile("C:\\Data\\Sub\\a.txt");
  Space.Lists[100].RefreshList();
  Space.ActiveList = 100;
  Space.Lists[101].Input().KeyDown(lister::DownKey, 0);  // reported by another list
  Space.Lists[100].Input().KeyDown(lister::DownKey, 0);
  EXPECT_TRUE(Space.Lists[100].Rows().StateOf(Row(100, "a.txt")).IsSelected);
  Space.Lists[100].Input().KeyDown(lister::SpaceKeyCode, 0);
  EXPECT_TRUE(Space.SpaceHeld);
  Space.Lists[100].Input().KeyDown(lister::UpKey, 0);  // takes the next one out as well
  EXPECT_FALSE(Space.Lists[100].Rows().StateOf(Row(100, "Deep")).IsSelected);
  Space.Lists[100].Input().KeyUp(lister::SpaceKeyCode);
  EXPECT_FALSE(Space.SpaceHeld);

  WheelView view(Space.Lists[100]);
  Space.Lists[1].Input().WheelTurned(120);
  Space.Lists[100].Input().WheelTurned(-120);
  EXPECT_EQ(view.Told, "focus up down ");

  bool locked = true;
  Handler.MouseLockAsked(1, locked);
  Space.ForEachList([](List& list) { EXPECT_TRUE(list.MouseLocked); });
  Handler.DragBegun(101, {});
  EXPECT_EQ(Space.CurrentList, 101);
  EXPECT_EQ(Space.ResizeAction, "DragStart");
  Handler.DragEnded(101, {});
  EXPECT_EQ(Space.ResizeAction, "");
  Space.Lists[1].User().DropOn("", {.Items = {}, .SourceText = {}, .Action = {}, .Source = 101});
  EXPECT_EQ(Space.DragSourceList, 101);
}

TEST_F(ListEventHandlerTest, HiddenItemsAreShownInOpenPanesAtOnce) {
  Platform.Files.AddFile("C:\\Data\\Sub\\secret").IsHidden = true;
  Pane(1).Status = workspace::Closed;
  ListCommands commands(Space);
  commands.HiddenShowHide();
  EXPECT_NE(Row(100, "secret"), lister::NoRow);
  EXPECT_EQ(Row(101, "secret"), lister::NoRow);
  commands.HiddenShowHide();
  EXPECT_EQ(Row(100, "secret"), lister::NoRow);
}

}  // namespace
}  // namespace tarnwell::lists
