#include "lists/TestLists.h"
#include "tools/CompareFolders.h"

namespace tarnwell::tools {
namespace {

class CompareFoldersTest : public testing::Test, public lists::TestLists {
 protected:
  CompareFoldersTest() {
    for (const int pane : {0, 1, 2}) {
      const std::string folder = "C:\\" + std::to_string(pane);
      Platform.Files.AddFile(folder + "\\only" + std::to_string(pane));
      Platform.Files.AddFile(folder + "\\both", std::string(static_cast<std::size_t>(pane), 'x'));
      OpenPane(pane, folder);
    }
  }
  // The marked items of the pane's file list, with "<" or ">" for size.
  std::string Marked(int pane) {
    const lister::ListerControl& list = Space.Lists.Files(pane);
    std::string text;
    for (int at = 0; at < list.Rows().ChildCount(lister::RootRow); ++at) {
      const lister::RowId row = list.Rows().Child(lister::RootRow, at);
      const lister::CompareMarks marks = list.Rows().StateOf(row).Marks;
      if (!marks.Any()) continue;
      text += list.Rows().CellText(row, lister::HeadingId::Name) + (marks.OnlyHere ? "+" : "") +
              (marks.Larger ? ">" : "") + (marks.Smaller ? "<" : "") + " ";
    }
    return text;
  }

  FolderComparison Command{Space, Host, Messages};
};

TEST_F(CompareFoldersTest, MarksTheOtherPanesAndOfTwoAlsoTheCurrentOne) {
  Space.Settings.CompareMode = workspace::CompareSize;
  Space.Form.Toolbar1["compare_size"].Pressed = true;
  Space.CurrentList = 1;  // the folder list stands for its pane
  const std::size_t watches = Platform.Watches.Watched().size();
  Command.CompareFolders();
  EXPECT_EQ(Marked(0), "both< only0+ ");
  EXPECT_EQ(Marked(1), "both> only1+ ");
  EXPECT_EQ(Marked(2), "");  // closed
  EXPECT_TRUE(Space.Form.Menus["mnuCompareSize"].Checked);
  EXPECT_FALSE(Space.Form.Menus["mnuCompareDate"].Checked);

  Pane(2).Status = workspace::Open;
  Space.OpenPaneCount = 3;
  Space.Lists.Files(1).RefreshList();  // takes the marks away
  Space.Settings.CompareMode = workspace::CompareNothing;
  Command.CompareFolders();
  EXPECT_EQ(Marked(1), "");
  EXPECT_EQ(Marked(2), "only2+ ");
  EXPECT_EQ(Platform.Watches.Watched().size(), watches);
  EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Default);

  Space.OpenPaneCount = 1;
  Command.CompareFolders();
  EXPECT_EQ(Messages.Texts,
            workspace::Texts{
                "You are only showing one folder currently, so there is nothing to compare."});
}

}  // namespace
}  // namespace tarnwell::tools
