#include "TestWorkspace.h"
#include "workspace/EnhancedMode.h"

namespace tarnwell::workspace {
namespace {

class FormLayoutTest : public testing::Test, public TestWorkspace {
 protected:
  FormLayoutTest() {
    for (const int pane : {0, 1}) {
      Space.Lists.Create(pane);
      Pane(pane).Initialized = true;
    }
  }
};

TEST_F(FormLayoutTest, MovesNothingUnlessSomethingChanged) {
  Pane(2).Status = Open;  // its set-up never ran
  Layout.ResizeForm(false);
  forms::TextBox& title = Space.Form.TitleBar[1];
  EXPECT_TRUE(title.Visible && !Space.Form.TitleBar[2].Visible && !Space.Form.TitleBar[3].Visible);
  EXPECT_EQ(Space.Form.ActiveControl, KeyboardFocus::Form);
  const base::Twips top = title.Top;
  title.Top = 1;
  Layout.ResizeForm(false);
  EXPECT_EQ(title.Top, 1);
  Space.CurrentList = 0;
  for (const bool isInsideAlone : {true, false}) {  // what is typed goes on, or not
    Space.Form.cboCommand.Text = "typed";
    Space.Form.ActiveControl = KeyboardFocus::CommandLine;
    ++(isInsideAlone ? Space.Form.ScaleHeight : Space.Form.Height);
    Layout.ResizeForm(false);
    EXPECT_EQ(Space.Form.cboCommand.Text, isInsideAlone ? "typed" : "");
    EXPECT_EQ(Space.Form.ActiveControl == KeyboardFocus::CommandLine, isInsideAlone);
  }
  for (const auto& change : std::vector<std::function<void()>>{
           [this] { Layout.ResizeForm(true); },
           [this] { ++Space.Form.ScaleHeight; },  // the menu bar took another line
           [this] { Space.Form.Height += 900; },
           [this] { Space.CommandLineChanged = Space.Form.Menus["mnuCommandOn"].Checked = true; },
           [this] { Space.ResizeAction = "DoResizingWestEast"; }}) {
    title.Top = 1;
    change();
    Layout.ResizeForm(Space.CommandLineChanged);
    EXPECT_NEAR(title.Top, top, 200);
  }
  EXPECT_TRUE(Space.Form.cboCommand.Visible && !Space.CommandLineChanged);
  EXPECT_EQ(Space.Form.txtCurrentPath.Top, 9002 - 305);

  title.Top = 1;
  Space.Form.State = forms::WindowState::Minimised;
  Layout.ResizeForm(true);
  EXPECT_EQ(title.Top, 1);
  Space.Form.State = forms::WindowState::Maximised;
  Layout.ResizeForm(false);  // makes up for it
  EXPECT_NEAR(title.Top, top, 200);
  title.Top = 1;
  Space.Form.Height = Space.Form.ScaleHeight = 4999;  // too low: controls stay where they are
  Layout.ResizeForm(true);
  EXPECT_EQ(title.Top, 1);
  EXPECT_TRUE(title.Visible && Space.Lists[101].Visible);
}

TEST_F(FormLayoutTest, SaysSoWhereAListHasNoRoom) {
  Space.Form.ScaleHeight = Space.Form.Height = 5100;
  for (const int layout : {Horizontal, Vertical}) {
    Space.Settings.Layout = layout;
    Pane(0).PercentHeightH = Pane(0).PercentWidth = 0.3F;
    Pane(1).PercentHeightH = Pane(1).PercentWidth = 0.7F;
    Pane(1).Height = 600;
    Layout.ResizeForm(false);
    // Rows: pane 0 is too low for both. Columns: a low folder list is shown all the same.
    for (const lister::ListId list : Ids{0, 100, 1, 101}) {
      const bool hasRoom = layout == Vertical ? list != 100 : list % 100 == 1;
      EXPECT_EQ(Space.Lists[list].Visible, hasRoom) << list;
      EXPECT_EQ(Space.Form.lblNoRoom[list].Visible, !hasRoom);
      EXPECT_EQ(Space.Form.shpPlaceHolder[list].Visible, !hasRoom);
    }
  }
}

TEST_F(FormLayoutTest, GivesTheActivePaneTheMostOfTheRoom) {
  Layout.TitleMouseMove(1);  // nothing expands yet
  EXPECT_EQ(Space.ActiveList, 0);
  Layout.SwitchAutoExpand(true);
  EXPECT_FLOAT_EQ(Pane(0).PercentHeightH, 0.7F);
  EXPECT_FLOAT_EQ(Pane(1).PercentHeightH, 0.3F);
  Space.ActiveList = Space.CurrentList = 100;
  Layout.TitleMouseMove(1);
  EXPECT_EQ((Ids{Space.ActiveList, Space.CurrentList}), (Ids{1, 100}));
  EXPECT_FLOAT_EQ(Pane(1).PercentHeightH, 0.7F);

  Layout.SwitchLayout("vertical");
  EXPECT_FLOAT_EQ(Pane(1).PercentWidth, 0.8F);
  Layout.SwitchAutoExpand(false);
  EXPECT_FLOAT_EQ(Pane(1).PercentWidth, 0.8F);
  Space.Form.TitleBar[1].Top = 1;
  Space.Form.Toolbar1["layoutvertical"].Pressed = false;  // as the click has left it
  Layout.SwitchLayout("vertical");
  EXPECT_TRUE(Space.Form.Toolbar1["layoutvertical"].Pressed);
  EXPECT_EQ(Space.Form.TitleBar[1].Top, 1);
  Layout.SwitchLayout("horizontal");
  EXPECT_TRUE(Space.Form.Toolbar1["layouthorizontal"].Pressed);
  EXPECT_GT(Space.Form.TitleBar[1].Top, 1000);
}

TEST_F(FormLayoutTest, ButtonOrEntryTurnsTheEnhancedModeOfOpenPanes) {
  Pane(1).Status = Closed;
  bool& pressed = Space.Form.Toolbar1["useenhancedmode"].Pressed;
  bool& checked = Space.Form.Menus["mnuUseEnhancedMode"].Checked;
  for (const bool flag : {false, true}) {
    pressed = !flag;
    checked = flag;
    SwitchMode(Space, flag, flag);
    EXPECT_TRUE(pressed && checked);
    EXPECT_TRUE(Space.Lists[0].HeadingActive("Comments") &&
                Space.Lists[100].HeadingActive("Comments"));
    EXPECT_FALSE(Space.Lists[101].HeadingActive("Comments"));
  }
}

}  // namespace
}  // namespace tarnwell::workspace
