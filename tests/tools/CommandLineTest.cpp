#include "lists/TestLists.h"
#include "tools/CommandLine.h"

namespace tarnwell::tools {
namespace {

class CommandLineTest : public testing::Test, public lists::TestLists {
 protected:
  std::string Enter(const std::string& text, const std::string& path) {
    Space.Form.cboCommand.Text = text;
    Space.Form.txtCurrentPath.Text = path;
    Command.Enter(false);
    return Last() + "|" + Space.Form.cboCommand.Text;
  }
  std::string Last() {
    const platform::LaunchRequest& last = Platform.Launcher.Requests.back();
    return last.File + "|" + last.Parameters + "|" + last.Folder;
  }

  CommandLine Command{Space, Platform.Files.Syntax(), Platform.Launcher, Messages};
};

TEST_F(CommandLineTest, SplitsAtTheFirstBlankAndTellsOfTerminalsAlone) {
  Platform.Launcher.Fault = {2, "There is none"};
  EXPECT_EQ(Enter("  dir  \"a b\" c ", "C:\\0"), "dir|\"a b\" c|C:\\0|dir  \"a b\" c");
  EXPECT_EQ(Enter("'my f' x\r\n", "S \\\\a\\b"), "'my|f' x|\\\\a\\b|'my f' x");
  EXPECT_EQ(Enter(" ", "C:\\..."), "||C:\\...|");
  EXPECT_TRUE(Messages.Texts.empty());
  OpenPane(0, "C:\\0");
  Command.OpenCommandLine();
  EXPECT_EQ(Last(), "terminal||C:\\0");
  Command.CompactDatabase("C:\\0\\x.mdb");
  EXPECT_EQ(Last(), "C:\\0\\x.mdb /compact||C:\\0");
  Space.CurrentList = 104;
  Command.OpenCommandLine();
  const std::string told = "An error occurred while attempting to open the command line window.";
  const std::string why = told + "\r\n\r\nThere is none.";
  EXPECT_EQ(Messages.Texts.front() + Messages.Texts.at(1) + Messages.Texts.back(),
            why + why + told);
}

}  // namespace
}  // namespace tarnwell::tools
