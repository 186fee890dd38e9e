#include "lists/TestLists.h"
#include "tools/CommandLine.h"

namespace tarnwell::tools {
namespace {

class CommandLineTest : public testing::Test, public lists::TestLists {
 protected:
  CommandLineTest() {
    Platform.Files.AddFile("C:\\0\\file");
    Platform.Files.AddFolder("C:\\0\\sub");
    OpenPane(0, "C:\\0");
    Space.CurrentList = 100;
  }
  // What was started, with the text that is left in the box.
  std::string Enter(const std::string& text, const std::string& path) {
    Space.Form.cboCommand.Text = text;
    Space.Form.txtCurrentPath.Text = path;
    Command.Enter(false);
    return Last() + " [" + Space.Form.cboCommand.Text + "]";
  }
  std::string Last() {
    const platform::LaunchRequest& last = Platform.Launcher.Requests.back();
    return last.File + "|" + last.Parameters + "|" + last.Folder;
  }
  void Click(const std::string& name) {
    lister::ListerControl& list = Space.Lists[100];
    const lister::RowId row = Row(100, name);
    const lister::RowPointer at{
        row, list.Rows().PositionOf(row), lister::RowPart::Item, {2, 0, 15, 30}};
    list.Input().MouseDown(at);
    list.Input().MouseUp(at);
  }

  CommandLine Command{Space, Platform.Files.Syntax(), Platform.Launcher, Messages};
};

TEST_F(CommandLineTest, SplitsAtTheFirstBlankAlone) {
  Platform.Launcher.Fault = {2, "nothing there"};
  EXPECT_EQ(Enter("  dir  \"a b\" c ", "C:\\0"), "dir|\"a b\" c|C:\\0 [dir  \"a b\" c]");
  EXPECT_EQ(Enter("'my file' x\r\n", "S \\\\server\\share"),
            "'my|file' x|\\\\server\\share ['my file' x]");
  EXPECT_EQ(Enter(" ", "C:\\..."), "||C:\\... []");
  EXPECT_TRUE(Messages.Texts.empty());
}

TEST_F(CommandLineTest, StartsInTheClickedFolderAndTellsOfFailures) {
  Click("sub");
  Command.OpenCommandLine();
  EXPECT_EQ(Last(), "terminal||C:\\0\\sub");
  Command.CompactDatabase("C:\\0\\file");
  EXPECT_EQ(Last(), "C:\\0\\file /compact||C:\\0\\sub");
  Click("file");
  Platform.Launcher.Fault = {2, "There is none"};
  Command.OpenCommandLine();
  EXPECT_EQ(Last(), "terminal||C:\\0");
  Space.CurrentList = 104;
  Command.OpenCommandLine();
  const std::string told = "An error occurred while attempting to open the command line window.";
  EXPECT_EQ(Messages.Texts.front(), told + "\r\n\r\nThere is none.");
  EXPECT_EQ(Messages.Texts.back(), told);
}

}  // namespace
}  // namespace tarnwell::tools
