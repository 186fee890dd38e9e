
#include "TestWorkspace.h"
#include "workspace/Splitters.h"

namespace tarnwell::workspace {
namespace {

using forms::MousePointer;

class SplittersTest : public testing::Test, public TestWorkspace {
 protected:
  SplittersTest() : Mouse(Space, Layout, Host) {
    for (const int pane : {0, 1, 3}) {  // pane 2 is closed, and lies between
      Space.Lists.Create(pane);
      Pane(pane).Initialized = true;
      Pane(pane).Status = Open;
      Pane(pane).PercentWidth = Pane(pane).PercentHeightH = pane == 3 ? 0.4F : 0.3F;
      Pane(pane).Height = Pane(pane).WidthH = 4000;
    }
    Space.OpenPaneCount = 3;
    for (forms::Shape* bar : {&Space.Form.LineHorz, &Space.Form.LineHorz2}) bar->Height = 60;
    for (forms::Shape* bar : {&Space.Form.LineVert, &Space.Form.LineVert2}) bar->Width = 60;
    for (forms::Shape* bar : Bars()) bar->Visible = false;
  }

  std::vector<forms::Shape*> Bars() {
    MainForm& form = Space.Form;
    return {&form.LineVert, &form.LineVert2, &form.LineHorz, &form.LineHorz2};
  }
  void Use(std::int32_t layout) {
    Space.Settings.Layout = layout;
    Layout.ResizeForm(false);
  }
  Place List(int pane) {
    const lister::ListerControl& list = Space.Lists.Folders(pane);
    return {list.Left, list.Top, list.Width, list.Height};
  }
  MouseZone ZoneAt(int x, int y) {
    Mouse.MouseMove(static_cast<float>(x), static_cast<float>(y));
    return Space.MouseZone;
  }
  // Presses at the first place and moves to the second.
  void DragTo(int x, int y, int toX, int toY) {
    ZoneAt(x, y);
    Mouse.MouseDown(static_cast<float>(x), static_cast<float>(y));
    ZoneAt(toX, toY);
  }

  Splitters Mouse;
};

TEST_F(SplittersTest, FindsTheGapsBetweenListsAndPanes) {
  Use(Vertical);
  const Place one = List(1);
  EXPECT_EQ(ZoneAt(one.Left, one.Bottom()), MouseZone::ResizeNSVertical);
  EXPECT_EQ(Space.Form.MousePointer, MousePointer::NorthSouth);
  EXPECT_EQ(Space.Drag.ZonePane, 1);
  EXPECT_EQ(ZoneAt(one.Right(), one.Bottom() + 60),
            MouseZone::ResizeNSVertical);  // a split comes first
  EXPECT_EQ(ZoneAt(one.Right() + 30, one.Bottom() + 60), MouseZone::ResizeWEVertical);
  EXPECT_EQ(Space.Form.MousePointer, MousePointer::WestEast);
  for (const auto& [x, y] : {std::pair{one.Right() + 30, Space.Area.ListsTop + 300},
                             {one.Left + 9, one.Bottom() + 61},
                             {List(3).Right() + 30, 5000}}) {  // beside the last pane
    EXPECT_EQ(ZoneAt(x, y), MouseZone::Nowhere) << x;
    EXPECT_EQ(Space.Form.MousePointer, MousePointer::Arrow);
  }
  Space.ResizeAction = "DragStart";  // items are dragged over the form
  EXPECT_EQ(ZoneAt(one.Left, one.Bottom()), MouseZone::Nowhere);
  Mouse.MouseUp();
  EXPECT_EQ(Space.ResizeAction, "DragStart");
  Space.ResizeAction.clear();

  Use(Horizontal);
  EXPECT_EQ(ZoneAt(List(3).Right() + 60, List(3).Bottom()), MouseZone::ResizeWEHorizontal);
  EXPECT_EQ(ZoneAt(0, List(0).Bottom()), MouseZone::ResizeNSHorizontal);  // whatever x is
  EXPECT_EQ(ZoneAt(0, List(3).Bottom() + 5), MouseZone::Nowhere);
}

// A bar between columns 1 and 3, in steps, up to the limit, given up, then for good.
TEST_F(SplittersTest, DragsABarBetweenPanesInSteps) {
  Use(Vertical);
  const Place one = List(1);
  const PaneRecord before = Pane(1), after = Pane(3);
  const int x = one.Right() + 20, left = one.Right();
  DragTo(x, 5000, x + 149, 9000);
  EXPECT_EQ((std::vector{Space.Form.LineVert.Left, Space.Form.LineVert2.Left}),
            (std::vector{left + 100, left + 100}));
  EXPECT_TRUE(Space.Form.LineVert.Visible && Space.Form.LineVert2.Visible);
  EXPECT_EQ(Space.Form.LineVert.Height, 9000 - 430);
  ZoneAt(x - 2500, 0);
  ZoneAt(x - before.Width + 799, 0);  // would leave column 1 too narrow: the last step stays
  EXPECT_EQ(Pane(3).Left, after.Left - 2500);
  EXPECT_EQ(List(1).Right(), one.Right());  // nothing but the bars has moved
  EXPECT_TRUE(Mouse.GiveUp());
  Mouse.MouseUp();
  for (const forms::Shape* bar : Bars()) EXPECT_FALSE(bar->Visible);
  EXPECT_EQ((std::vector{Pane(1).Width, Pane(3).Width, Pane(3).Left}),
            (std::vector{before.Width, after.Width, after.Left}));
  EXPECT_EQ(Space.ResizeAction, "");

  for (const int way : {0, 1000}) {
    Host.SetScreenPointer(MousePointer::Hourglass);
    DragTo(x, 5000, x + way, 0);
    Mouse.MouseDown(0, 0);  // a second button changes nothing
    Mouse.MouseUp();
    EXPECT_EQ(List(1).Right(), one.Right() + way);
    EXPECT_NEAR(Pane(1).PercentWidth, (before.Width + way) / 15120.0, 1e-6);
    EXPECT_EQ(Pane(1).PercentWidth == before.PercentWidth, way == 0);
    EXPECT_EQ(Host.ScreenPointer(), MousePointer::Default);
  }
}

TEST_F(SplittersTest, DragsSplitsAndRows) {
  Use(Vertical);
  const Place list = List(1);
  DragTo(list.Left + 9, list.Bottom() + 30, 0, list.Bottom() - 970);
  EXPECT_EQ(Space.Form.LineHorz.Top, list.Bottom() - 1000);
  EXPECT_EQ(Pane(1).Height, 3000);
  ZoneAt(0, list.Bottom() + 30 - 3450);
  EXPECT_EQ(Pane(1).Height, 600);
  ZoneAt(0, list.Bottom() + 30 - 3550);
  ZoneAt(0, 100000);
  EXPECT_EQ(Pane(1).Height, 600);
  EXPECT_TRUE(Mouse.GiveUp());
  EXPECT_EQ(Pane(1).Height, 4000);

  Use(Horizontal);
  const Place row = List(0);
  DragTo(row.Right() + 30, row.Top + 9, row.Right() + 1030, 0);
  Mouse.MouseUp();
  EXPECT_EQ(List(0).Right(), row.Right() + 1000);
  DragTo(0, row.Bottom() + 30, 0, row.Bottom() + 430);
  EXPECT_EQ(Space.Form.LineHorz2.Top, row.Bottom() + 400);
  Mouse.MouseUp();
  EXPECT_EQ(List(0).Bottom(), row.Bottom() + 400);
  EXPECT_EQ(List(3).Top, List(1).Bottom() + 375);
}

}  // namespace
}  // namespace tarnwell::workspace
