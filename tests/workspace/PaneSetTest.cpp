#include "TestWorkspace.h"
#include "workspace/PaneSet.h"

namespace tarnwell::workspace {
namespace {

class PaneSetTest : public testing::Test, public TestWorkspace, public PaneHooks {
 protected:
  PaneSetTest() : Panes(Space, Layout, Host, Messages, *this) {
    Space.Lists.Create(0);
    Panes.InitializePaneSet(0);
    Panes.InitializePaneSet(1);
    Told.clear();
  }

  void ReplayPaneSettings(int pane) override {
    Told.push_back("replay " + std::to_string(pane));
    if (OnReplay) OnReplay();
  }
  void ApplySkinChange() override { Told.emplace_back("skin"); }
  void LoadFolders(int pane) override {
    Told.push_back("folders " + std::to_string(pane));
    LoadPaneDrive(pane);
  }
  void LoadPaneDrive(int pane) override {
    Space.Lists.Folders(pane).LoadDrive(Pane(pane).InitialDrive, false);
    Pane(pane).DriveLoaded = true;
  }

  PaneSet Panes;
  Texts Told;
  std::function<void()> OnReplay;
};

TEST_F(PaneSetTest, OpensAPaneOnceAndKeepsItsListsForTheNextTime) {
  for (int round = 0; round < 2; ++round) {
    Panes.ChangePanes(3);
    EXPECT_EQ(Told, (Texts{"replay 3", "skin", "folders 3"}));  // at the first round
    EXPECT_EQ(PressedPanes(), "013");
    EXPECT_TRUE(Space.Lists.Folders(3).Visible && Space.Form.TitleBar[3].Visible);
    // A watch that was stopped is for other commands to start.
    EXPECT_EQ(Platform.Watches.Watched().size(), round == 0 ? 3U : 2U);
    Panes.ChangePanes(3);
    EXPECT_EQ(PressedPanes(), "01");
    EXPECT_FALSE(Space.Lists.Folders(3).Visible || Space.Form.TitleBar[3].Visible);
    EXPECT_EQ(Platform.Watches.Watched().size(), 2U);
  }
  Panes.ChangePanes(0);
  Space.Form.Toolbar1["pane1"].Pressed = false;  // as the click has left it
  Panes.ChangePanes(1);
  EXPECT_EQ(Messages.Texts, (Texts{" You must always have at least one pane open."}));
  EXPECT_EQ(PressedPanes(), "1");
  EXPECT_EQ(Platform.Watches.Watched().size(), 1U);
}

TEST_F(PaneSetTest, MovesTheActiveListOutOfAClosedPane) {
  struct Case {
    lister::ListId Current, Active, Closed, NewCurrent, NewActive;
  };
  Panes.ChangePanes(2);
  for (const Case& each : {Case{0, 0, 0, 1, 1}, Case{102, 1, 1, 102, 102}, Case{1, 102, 1, 0, 0},
                           Case{1, 2, 0, 1, 2}}) {
    Space.CurrentList = each.Current;
    Space.ActiveList = each.Active;
    Panes.ChangePanes(each.Closed);
    EXPECT_EQ((Ids{Space.CurrentList, Space.ActiveList}), (Ids{each.NewCurrent, each.NewActive}))
        << each.Current << " and " << each.Active << ", closing " << each.Closed;
    EXPECT_TRUE(Space.Lists[Space.CurrentList].Shown().IsActive);
    Panes.ChangePanes(each.Closed);
  }
  // Settings can leave every pane closed.
  for (int pane = 0; pane < 3; ++pane) Pane(pane).Status = Closed;
  Space.OpenPaneCount = 0;
  Space.CurrentList = Space.ActiveList = lister::NoList;
  Panes.ChangePanes(4);
  EXPECT_EQ((Ids{Space.CurrentList, Space.ActiveList}), (Ids{4, 4}));
}

TEST_F(PaneSetTest, MakesOpenPanesEqualUnlessTheActiveOneExpands) {
  Space.Settings.Layout = Vertical;
  Pane(0).PercentWidth = 0.9F;
  Pane(3).PercentWidth = 0.7F;
  Layout.ResizeForm(true);
  Panes.ChangePanes(2);
  for (const int pane : {0, 1, 2}) {
    EXPECT_FLOAT_EQ(Pane(pane).PercentWidth, 1.0F / 3);
    EXPECT_FLOAT_EQ(Pane(pane).PercentHeightH, 1.0F / 3);
    EXPECT_EQ(Pane(pane).HeightH, 5040);  // of the width, and laid out anew when needed
  }
  EXPECT_EQ(Pane(3).PercentWidth, 0.7F);
  Layout.SwitchAutoExpand(true);
  Panes.ChangePanes(3);
  EXPECT_FLOAT_EQ(Pane(0).PercentWidth, 0.8F);
  EXPECT_FLOAT_EQ(Pane(3).PercentWidth, 0.2F / 3);
}

TEST_F(PaneSetTest, WarnsOfManyPanesOnceAndOnOldSystemsAlone) {
  for (const bool old : {true, false}) {
    Messages.Texts.clear();
    Space.Settings.SkipWin9XWarningPanes = false;
    Space.IsWin9x = old;
    Space.OsName = "Windows Me";
    for (const int pane : {2, 2}) Panes.ChangePanes(pane);  // closed, and yet it counts
    EXPECT_EQ(Space.Settings.SkipWin9XWarningPanes, !old);  // four live ones the second time
    for (const int pane : {3, 4, 4, 3}) Panes.ChangePanes(pane);
    EXPECT_TRUE(Space.Settings.SkipWin9XWarningPanes);
    ASSERT_EQ(Messages.Texts.size(), old ? 1U : 0U);
    EXPECT_TRUE(!old || Messages.Texts[0].starts_with("On older operating systems like the one "
                                                      "your running (Windows Me) your system "));
  }
}

TEST_F(PaneSetTest, SetsAPaneUpInOrderSoThatItsSettingsWin) {
  Space.IsWin9x = true;
  lister::ListerControl *folders = nullptr, *files = nullptr;
  OnReplay = [&] {
    folders = &Space.Lists.Folders(2);
    files = &Space.Lists.Files(2);
    EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Hourglass);
    EXPECT_TRUE(Pane(2).Initialized && files->IsWin9x && folders->IsWin9x);
    EXPECT_EQ(files->ListType, 2);
    files->ListMode = 3;
  };
  Host.SetScreenPointer(forms::MousePointer::WestEast);
  Panes.ChangePanes(2);
  EXPECT_TRUE(folders->ListType == 1 && files->ListMode == 3);

  OnReplay = [] { throw std::runtime_error("bad"); };
  Panes.ChangePanes(3);
  EXPECT_EQ(Messages.Texts.back(), "There was an error initializing one of the panes.");
  EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::WestEast);
  EXPECT_TRUE(Pane(3).Initialized && Pane(3).DriveLoaded);
  EXPECT_EQ(PressedPanes(), "0123");
}

}  // namespace
}  // namespace tarnwell::workspace
