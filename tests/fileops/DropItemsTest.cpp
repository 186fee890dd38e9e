#include "fileops/DropItems.h"
#include "fileops/popCopyMove.h"
#include "lister/ListerUser.h"
#include "lists/TestLists.h"

namespace tarnwell::fileops {
namespace {

using namespace std::string_literals;
using workspace::Texts;

class DropItemsTest : public testing::Test, public lists::TestLists {
 protected:
  DropItemsTest() {
    Platform.Files.AddFile("C:\\Data\\one.txt");
    Platform.Files.AddFolder("C:\\Data\\Sub\\Deep");
    OpenPane(0, "C:\\Data");
    OpenPane(1, "C:\\Other");
    OnDrop = [this](lister::ListId list, const lister::Drop& drop) {
      Command.DropItems(list, drop);
    };
    Platform.Operation.OnRun = [this](const platform::OperationRequest& request) {
      std::string text = std::to_string(static_cast<int>(request.Function)) + " " + request.Items +
                         "> " + request.Destination;
      std::replace(text.begin(), text.end(), '\0', ';');
      Asked.push_back(text);
      return 0;
    };
    // The user presses the button of that word; none for an empty one.
    Host.OnModal = [this](forms::Form& form) {
      auto& dialog = dynamic_cast<popCopyMove&>(form);
      Asked.push_back(dialog.txtSource.Text + "> " + dialog.txtDest.Text);
      EXPECT_EQ(dialog.Left * 2 + dialog.Width, Space.Form.Left * 2 + Space.Form.Width);
      if (!NewFolder.empty()) dialog.txtDest.Text = NewFolder;
      if (Button == "copy") dialog.cmdCopyClick();
      if (Button == "move") dialog.cmdMoveClick();
      if (Button == "cancel") dialog.cmdCancelClick();
    };
  }
  Texts Take() { return std::exchange(Asked, {}); }
  void Select(lister::ListId list, const std::string& name) {
    Space.Lists[list].Rows().MoveCurrent(Row(list, name));
    Space.Lists[list].SpaceKey();
  }

  std::string Button, NewFolder;
  DialogFields Fields;
  Texts Asked;
  FileOperations Operations{Space, Platform.Files.Syntax(), Platform.Operation, Nav, Messages,
                            Fields};
  DropCommand Command{Space, Platform.Files, Platform.Drives, Operations, Host, Messages, Fields};
};

TEST_F(DropItemsTest, DoesWhatTheDropSaysOrTheUser) {
  lister::ListerControl& other = Space.Lists[101];
  lister::Drop drop{.Items = "C:\\Data\\one.txt\0"s, .Source = 100};
  // The first one of all comes from another program.
  other.User().DropOn("C:\\Other", {.Items = drop.Items, .Action = "copy"});
  EXPECT_EQ(Take(), (Texts{"2 C:\\Data\\one.txt;> C:\\Other\\;"}));

  Space.ResizeAction = "DragStart";
  drop.Action = "move";
  int refreshed = 0;
  Platform.Files.AddFile("C:\\Data\\new.txt");
  other.User().DropOn("C:\\Other", drop);
  refreshed += Row(100, "new.txt") != lister::NoRow;
  EXPECT_EQ(Take(), (Texts{"1 C:\\Data\\one.txt;> C:\\Other\\;"}));
  EXPECT_EQ(Space.ResizeAction + std::to_string(refreshed), "1");
  EXPECT_EQ(Space.DragSourceList, lister::ForeignList);

  // Closed without a button: what was answered last counts.
  drop.Action.clear();
  other.User().DropOn("C:\\Other", drop);
  EXPECT_EQ(Take(),
            (Texts{"C:\\Data\\one.txt> C:\\Other\\", "1 C:\\Data\\one.txt;> C:\\Other\\;"}));
  Fields.DialogResult = "delete";  // but nothing dropped is deleted for it
  other.User().DropOn("C:\\Other", drop);
  EXPECT_EQ(Take().back(), "0 C:\\Data\\one.txt;> ;");
  drop.Items += "C:\\Data\\new.txt\0"s;
  Button = "copy";
  NewFolder = "C:\\New";
  other.User().DropOn("C:\\Other", drop);
  EXPECT_EQ(Take(), (Texts{"one.txt, new.txt> C:\\Other\\",
                           "2 C:\\Data\\one.txt;C:\\Data\\new.txt;> C:\\New\\;"}));
  EXPECT_EQ(Fields.DialogResult, "copy");
  EXPECT_EQ(Fields.DialogDestination, NewFolder);
  Button = "cancel";
  Space.Lists[1].User().DropOn("*Net\\\\server\\share", drop);
  EXPECT_EQ(Take(), (Texts{"one.txt, new.txt> \\\\server\\share\\"}));
  Space.Lists[1].User().DropOn("", drop);
  EXPECT_EQ(Take(), Texts{});
  EXPECT_EQ(Space.DragSourceList, lister::ForeignList);
  // Without items it is the source's selection.
  Select(100, "Sub");
  Space.Lists[100].FirstSelected();
  other.User().DropOn("C:\\Other", {.Action = "copy", .Source = 100});
  EXPECT_EQ(Take(), (Texts{"2 C:\\Data\\Sub;;> C:\\Other\\;"}));
}

TEST_F(DropItemsTest, TakesAPathFromTheFolderDroppedOn) {
  Platform.Drives.Home = "D:\\Home";
  const lister::Drop drop{.Items = "C:\\Data\\one.txt\0"s, .Source = 100};
  Button = "copy";
  for (const auto& [typed, target] : {std::pair{".", "C:\\Other\\"},
                                      {"a\\.\\b\\", "C:\\Other\\a\\b\\"},
                                      {"..\\a", "C:\\a\\"},
                                      {"~", "D:\\Home\\"},
                                      {"~\\x", "D:\\Home\\x\\"},
                                      {"~x", "C:\\Other\\~x\\"},
                                      {"\\\\server\\share\\x", "\\\\server\\share\\x\\"}}) {
    NewFolder = typed;
    Space.Lists[101].User().DropOn("C:\\Other", drop);
    EXPECT_EQ(Take().back(), "2 C:\\Data\\one.txt;> "s + target + ";");
  }
  // What cannot be is told, and the dialog comes again with it.
  const std::string bad = NewFolder = "..\\Data\\one.txt\\x";
  Messages.OnMessage = [this] { NewFolder = "..\\Data"; };
  Space.Lists[101].User().DropOn("C:\\Other", drop);
  EXPECT_EQ(Take(), (Texts{"C:\\Data\\one.txt> C:\\Other\\", "C:\\Data\\one.txt> " + bad,
                           "2 C:\\Data\\one.txt;> C:\\Data\\;"}));
  EXPECT_EQ(Messages.Texts, Texts{"No folder: C:\\Data\\one.txt"});
  NewFolder = bad;
  Messages.OnMessage = [this] { Button.clear(); };  // closed by its frame
  Space.Lists[101].User().DropOn("C:\\Other", drop);
  EXPECT_EQ(Take().back(), "C:\\Data\\one.txt> " + bad);
}

TEST_F(DropItemsTest, PastesWhatIsSelectedAndEndsTheAction) {
  lister::ListerControl& other = Space.Lists[101];
  const auto paste = [&](bool skipDialog) {
    Space.Lists[100].BeginContextAction();
    Space.ResizeAction = "DragStart";
    Command.Paste(100, 101, skipDialog);
    EXPECT_EQ(Space.ResizeAction, "");
    EXPECT_FALSE(Space.Lists[100].Rows().StateOf(Row(100, "Sub")).IsTarget);
    return Take();
  };
  OnDrop = {};
  EXPECT_EQ(paste(true), Texts{});  // nowhere to go
  other.User().DropOn("*Net\\\\server\\share", {.Items = "x\0"s});
  EXPECT_EQ(paste(true), Texts{});  // nothing selected
  Select(100, "Sub");
  Space.InternalClipAction = "move";
  EXPECT_EQ(paste(true), (Texts{"1 C:\\Data\\Sub;;> \\\\server\\share\\;"}));
  Button = "copy";
  EXPECT_EQ(paste(false),
            (Texts{"Folder: Sub> \\\\server\\share\\", "2 C:\\Data\\Sub;;> \\\\server\\share\\;"}));
  Select(100, "one.txt");
  EXPECT_EQ(paste(false).front(), "Sub, one.txt> \\\\server\\share\\");
  Space.Lists[100].SelectAll("none");
  Select(100, "Sub");
  other.User().DropOn("C:\\Data\\Sub", {.Items = "x\0"s});
  EXPECT_EQ(paste(true), Texts{});  // into itself
}

}  // namespace
}  // namespace tarnwell::fileops
