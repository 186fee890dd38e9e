#include "fileops/NewFolder.h"
#include "fileops/popNewFolder.h"
#include "lists/TestLists.h"

namespace tarnwell::fileops {
namespace {

class NewFolderTest : public testing::Test, public lists::TestLists {
 protected:
  NewFolderTest() {
    SetUpPane(0, "C:\\Data");
    Nav.LoadFolders(0);
    Space.CurrentList = 100;
  }
  // The user types the name and presses the button, and gives up when asked again.
  void Create(const std::string& name) {
    Host.OnModal = [=](forms::Form& form) {
      auto& dialog = dynamic_cast<popNewFolder&>(form);
      EXPECT_EQ(dialog.txtDest.Text, "C:\\Data\\");
      if (!dialog.txtNewFolderName.Text.empty()) {
        EXPECT_EQ(dialog.txtNewFolderName.Text, name);
        return dialog.cmdCancelClick();
      }
      dialog.txtNewFolderName.Text = name;
      dialog.cmdCopyClick();
    };
    Command.CreateNewFolder(true);
  }

  DialogFields Fields;
  NewFolder Command{Space, Platform.Files, Host, Messages, Fields};
};

TEST_F(NewFolderTest, MakesTheFolderAndShowsIt) {
  const std::size_t watches = Platform.Watches.Watched().size();
  Create("New");
  EXPECT_TRUE(Platform.Files.FolderExists("C:\\Data\\New"));
  EXPECT_NE(Row(100, "New"), lister::NoRow);
  Space.CurrentList = 0;  // from the tree, whose own cursor stays
  const lister::RowId open = Space.Lists[0].Rows().CurrentRow();
  Create("Tree");
  ASSERT_NE(Row(100, "Tree"), lister::NoRow);
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "Tree"));
  EXPECT_TRUE(Space.Lists[0].Rows().CurrentRow() == open && Space.CurrentList == 0);
  Platform.Files.Remove("C:\\Data\\Tree");
  Space.CurrentList = 100;
  EXPECT_TRUE(Messages.Texts.empty());
  Create("New");  // a name that is taken
  const std::vector<std::string> taken = std::exchange(Messages.Texts, {});
  for (const char* name : {"Sub\\New", "..", ".", "nul"}) Create(name);
  EXPECT_EQ(Messages.Texts.size(), 4U);
  Create("cancel");
  Create("");
  Host.OnModal = {};  // closed by its frame
  Command.CreateNewFolder(true);
  EXPECT_EQ(taken,
            std::vector<std::string>{"Sorry, you cannot make a new folder here.\r\n\r\nThe system "
                                     "returned the following message:\r\n\r\n     File exists"});
  EXPECT_EQ(Space.Lists[100].Rows().ChildCount(lister::RootRow), 1);
  EXPECT_EQ(Platform.Watches.Watched().size(), watches);  // the bracket is closed on every way
}

TEST_F(NewFolderTest, SaysSoWhereThereIsNoPlace) {
  Platform.Files.Remove("C:\\Data");
  Command.CreateNewFolder(true);
  EXPECT_EQ(Messages.Texts, std::vector<std::string>{"Sorry, you cannot make a new folder here."});
}

}  // namespace
}  // namespace tarnwell::fileops
