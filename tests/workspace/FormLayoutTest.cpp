#include "TestWorkspace.h"
#include "workspace/FormLayout.h"
#include "workspace/Highlight.h"

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
  EXPECT_TRUE(Space.Form.TitleBar[1].Visible && !Space.Form.TitleBar[2].Visible);
  const base::Twips top = Space.Form.TitleBar[1].Top;
  Space.Form.TitleBar[1].Top = 1;
  Layout.ResizeForm(false);
  EXPECT_EQ(Space.Form.TitleBar[1].Top, 1);
  Layout.ResizeForm(true);
  EXPECT_EQ(Space.Form.TitleBar[1].Top, top);
  Space.Settings.Layout = Vertical;
  Layout.ResizeForm(false);
  EXPECT_LT(Space.Form.TitleBar[1].Top, top);

  const base::Twips left = Space.Form.TitleBar[1].Left;
  Space.Form.ScaleWidth = 0;
  Space.Form.State = forms::WindowState::Minimised;
  Layout.ResizeForm(true);
  EXPECT_EQ(Space.Form.TitleBar[1].Left, left);
}

TEST_F(FormLayoutTest, ClosedPanesTakeNothingFromTheOpenOnes) {
  Space.Form.cmdClosePane[0].Height = Space.Form.cmdClosePane[0].Width = 315;
  Layout.ResizeForm(true);
  for (const bool open : {false, true}) {
    Pane(0).Status = open ? Open : Closed;
    Layout.ResizeForm(true);
    EXPECT_EQ(Space.Form.TitleBar[1].Height, 315);
    EXPECT_EQ(Space.Form.cmdClosePane[1].Width, 315);
    EXPECT_EQ(Space.Form.TitleBar[0].Visible, open);
    EXPECT_EQ(Space.Lists.Files(0).Visible, open);
  }
}

TEST_F(FormLayoutTest, HighlightsTheCurrentListWhenAskedToDraw) {
  Space.Form.TitleBar[1].Text = "C:\\Data\\";
  Space.Form.cboCommand.Text = "dir";
  Space.CurrentList = 101;
  HighlightActiveList(Space, false);
  EXPECT_EQ(Space.Form.cboCommand.Text, "dir");
  for (const lister::ListId list : Ids{101, 0}) {
    Space.CurrentList = list;
    HighlightActiveList(Space, true);
    EXPECT_EQ(Space.Form.cboCommand.Text + Space.Form.txtCurrentPath.Text,
              list == 101 ? "C:\\Data\\" : "");
    EXPECT_EQ(Space.Form.Toolbar1["headascadd"].Enabled, list == 101);
    EXPECT_EQ(Space.Form.Menus["mnuHeadingSize"].Checked, list == 101);
    EXPECT_EQ(Space.Lists[101].IsActive(), list == 101);
  }
}

}  // namespace
}  // namespace tarnwell::workspace
