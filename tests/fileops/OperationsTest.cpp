#include "fileops/DeleteSelection.h"
#include "fileops/DropItems.h"
#include "fileops/DuplicateItems.h"
#include "fileops/NewFolder.h"
#include "fileops/RenameItem.h"
#include "fileops/popCopyMove.h"
#include "fileops/popDelete.h"
#include "fileops/popNewFolder.h"
#include "fileops/popRename.h"
#include "lister/ListerUser.h"
#include "lists/TestLists.h"

namespace tarnwell::fileops {
namespace {

using workspace::Texts;
using namespace std::string_literals;

constexpr const char* Sorry = "Sorry, the renaming could not be performed.";

class OperationsTest : public testing::Test, public lists::TestLists {
 protected:
  OperationsTest() {
    for (const char* file : {"C:\\Data\\one.txt", "C:\\Data\\two", "C:\\Data\\Sub\\x"}) {
      Platform.Files.AddFile(file);
    }
    OpenPane(0, "C:\\Data");
    OpenPane(1, "C:\\Other");
    Space.CurrentList = 100;
    Watched = Platform.Watches.Watched().size();
  }

  // What the platform was asked last, in one line.
  std::string Asked() {
    if (Platform.Operation.Requests.empty()) return "nothing";
    const platform::OperationRequest request = Platform.Operation.Requests.back();
    Platform.Operation.Requests.clear();
    return InOneLine(request) + "| " + std::to_string(request.Flags);
  }
  // What the platform was told of, nothing but commands of that kind.
  Texts Noted(platform::CommandKind kind) {
    Texts noted;
    for (const platform::CommandKind each : Platform.Operation.Kinds) EXPECT_EQ(each, kind);
    for (const auto& [from, to] : Platform.Operation.Noted) noted.push_back(from + " > " + to);
    return noted;
  }
  bool AllWatch() { return Platform.Watches.Watched().size() == Watched; }
  // The user, before the next dialog of this type.
  template <typename Dialog>
  void Answer(std::function<void(Dialog&)> answer) {
    Host.OnModal = [=](forms::Form& form) { answer(dynamic_cast<Dialog&>(form)); };
  }

  DialogFields Fields;
  const base::PathSyntax& Syntax = Platform.Files.Syntax();
  FileOperations Operations{Space, Syntax, Platform.Operation, Nav, Messages, Fields};
  int ShellDeletes = 0;
  DeleteCommand Deleting{
      Space, Syntax, Platform.Operation, Operations, Nav, Host, Messages, Fields, [this] {
        ++ShellDeletes;
        return platform::NoOperation;
      }};
  RenameCommand Renaming{Space, Platform.Files, Platform.Operation, Host, Messages, Fields};
  NewFolder MakingFolders{Space, Platform.Files, Platform.Operation, Host, Messages, Fields};
  std::size_t Watched = 0;
};

TEST_F(OperationsTest, HandsThePlatformItemsTargetAndFlags) {
  const std::string items = "C:\\Data\\one.txt\0"s;
  Platform.Operation.OnRun = [this](const platform::OperationRequest&) {
    EXPECT_TRUE(Platform.Watches.Watched().empty());
    Platform.Files.AddFile("C:\\Other\\new");
    return 0;
  };
  Platform.Operation.Placed = {{"C:\\Data\\one.txt", "C:\\Other\\new"}};
  Operations.FileOperate("copy", 100, 101, "C:\\Other", false, items);
  EXPECT_EQ(Asked(), "2 C:\\Data\\one.txt;> C:\\Other\\;| 64");
  EXPECT_NE(Row(101, "new"), lister::NoRow);
  EXPECT_EQ(Space.Lists[101].Rows().CurrentRow(), Row(101, "new"));
  EXPECT_EQ(Space.CurrentList, 100);  // nobody was told of it
  Platform.Operation.OnRun = {};
  struct Case {
    const char *Word, *Folder, *Asked;
    bool Recycle;
  };
  for (const Case& each :
       {Case{"move", "C:\\Data\\", "1 C:\\Data\\one.txt;> C:\\Data\\;| 72", false},
        {"move", "c:\\data\\", "1 C:\\Data\\one.txt;> c:\\data\\;| 64", false},
        {"delete", "", "3 C:\\Data\\one.txt;> ;| 16", false},
        {"delete", "", "3 C:\\Data\\one.txt;> ;| 80", true},
        {"rename", "C:\\Other", "0 C:\\Data\\one.txt;> ;| 64", false},
        {"", "", "0 C:\\Data\\one.txt;> ;| 64", false}}) {
    Fields.SendToRecycle = each.Recycle;
    Operations.FileOperate(each.Word, 100, 101, each.Folder, false, items);
    EXPECT_EQ(Asked(), each.Asked);
    EXPECT_TRUE(AllWatch());
  }
  // A drag from another program, onto a folder list.
  Operations.FileOperate("copy", lister::ForeignList, 1, "C:\\Other", true, items);
  EXPECT_EQ(Asked(), "2 C:\\Data\\one.txt;> C:\\Other\\;| 64");
  Operations.FileOperate("copy", lister::NoList, 101, "C:\\Other", false, items);
  EXPECT_TRUE(AllWatch());
  Operations.FileOperate("cancel", 100, 101, "C:\\Other", false, items);
  EXPECT_TRUE(Platform.Watches.Watched().empty());
  Operations.FileOperate("copy", 101, 100, "C:\\Data", false, "");
  EXPECT_EQ(Messages.Texts, (Texts{"No files selected for this operation."}));
  EXPECT_EQ(Asked(), "nothing");
  std::int32_t code = 0;
  Platform.Operation.OnRun = [](const platform::OperationRequest&) { return 5; };
  Operations.PerformShellAction("C:\\a", "C:\\b", [&](std::int32_t result) { code = result; });
  EXPECT_EQ(Asked() + std::to_string(code), "2 C:\\a;> C:\\b;| 2605");
}

TEST_F(OperationsTest, MovesUpFromAFolderThatItDeletes) {
  Space.Lists.Folders(0).OpenFolder(0, "C:\\Data\\Sub");
  Platform.Operation.OnRun = [this](const platform::OperationRequest&) {
    Platform.Files.Remove("C:\\Data\\Sub");
    return 0;
  };
  Operations.FileOperate("delete", 0, 0, "", false, "C:\\Data\\Sub\0"s);
  EXPECT_EQ(Space.Form.TitleBar[0].Text, "C:\\Data\\");
  EXPECT_TRUE(AllWatch());

  Space.CurrentList = 0;
  Answer<popDelete>([](popDelete& dialog) { dialog.cmdDeleteClick(); });
  Deleting.DeleteSelection(true);
  EXPECT_EQ(Asked(), "3 C:\\Data;;> ;| 16");
  EXPECT_EQ(Space.Form.TitleBar[0].Text, "C:\\");
  Deleting.DeleteSelection(true);  // a drive
  EXPECT_EQ(Asked(), "nothing");
}

TEST_F(OperationsTest, FollowsUpOnListsAsTheyAreByThen) {
  fakes::FakeFileOperation& work = Platform.Operation;
  work.Holds = true;
  const auto copy = [&](const std::string& name) {
    Platform.Files.AddFile("C:\\Other\\" + name);
    work.Placed = {{"C:\\Data\\one.txt", "C:\\Other\\" + name}};
    Operations.FileOperate("copy", 100, 1, "C:\\Other", true, "C:\\Data\\one.txt\0"s);
    EXPECT_TRUE(Platform.Watches.Watched().empty());
  };
  const auto current = [this] {
    return Space.Lists[101].Rows().PathOf(Space.Lists[101].Rows().CurrentRow());
  };
  copy("a");
  EXPECT_EQ(Row(101, "a"), lister::NoRow);
  // The first is brought to the lists, and the second alone lets them watch.
  work.WhenDone(1, [&](const auto&) {
    EXPECT_NE(Row(101, "b"), lister::NoRow);
    EXPECT_TRUE(Platform.Watches.Watched().empty());
  });
  copy("b");
  std::string folder = "C:\\Other";
  Space.Lists[101].LoadFolderContents(folder, true);
  work.Finish();
  EXPECT_TRUE(AllWatch());
  EXPECT_EQ(current(), "C:\\Other\\a");
  copy("c");
  Space.Lists[101].Rows().MoveCurrent(Row(101, "b"));  // the user goes on
  work.Finish();
  EXPECT_EQ(current(), "C:\\Other\\b");
  copy("c2");
  Space.Form.ActiveControl = workspace::KeyboardFocus::CommandLine;
  work.Finish();
  EXPECT_EQ(current(), "C:\\Other\\b");
  Space.Form.ActiveControl = workspace::KeyboardFocus::List;
  copy("d");
  Space.Lists[1].OpenFolder(0, "C:\\Data");
  const std::string elsewhere = current();
  work.Finish();
  EXPECT_EQ(current(), elsewhere);

  // Both ways to delete the folder on show: the user has left it by then.
  Space.CurrentList = 0;
  Answer<popDelete>([](popDelete& dialog) { dialog.cmdDeleteClick(); });
  for (const bool stays : {false, true}) {
    for (const bool forGood : {false, true}) {
      Space.Lists[0].OpenFolder(0, "C:\\Data\\Sub");
      if (forGood) {
        Deleting.DeleteSelection(true);
      } else {
        Operations.FileOperate("delete", 0, 0, "", false, "C:\\Data\\Sub\0"s);
      }
      if (!stays) Space.Lists[0].OpenFolder(0, "C:\\Other");
      work.Finish();
      EXPECT_EQ(Space.Form.TitleBar[0].Text, stays ? "C:\\Data\\" : "C:\\Other\\");
    }
  }
  EXPECT_EQ(work.Kinds.back(), platform::CommandKind::Delete);
  Space.CurrentList = 100;
  Space.Lists[0].OpenFolder(0, "C:\\Data");
  Select(100, "one.txt");
  Deleting.DeleteSelection(true);
  Platform.Files.Remove("C:\\Data\\one.txt");
  EXPECT_NE(Row(100, "one.txt"), lister::NoRow);
  Space.CurrentList = 101;  // the user goes on
  work.Finish();
  EXPECT_EQ(Row(100, "one.txt"), lister::NoRow);
}

TEST_F(OperationsTest, DeletesForGoodAfterAQuestionAlone) {
  Deleting.DeleteSelection(true);  // nothing selected
  EXPECT_EQ(Host.Told.size(), 0U);
  Select(100, "one.txt");
  for (const bool deletes : {false, true}) {
    Answer<popDelete>([=](popDelete& dialog) {
      EXPECT_EQ(dialog.Label1.Caption + dialog.txtSource.Text,
                "Permanently Delete?Folder: one.txt");
      EXPECT_FALSE(dialog.chkSendToRecycleBin.Visible || dialog.Label2.Visible);
      EXPECT_TRUE(dialog.cmdCancel.Default && !dialog.cmdDelete.Default);
      if (deletes) dialog.cmdDeleteClick();
    });
    Deleting.DeleteSelection(true);
    EXPECT_EQ(Asked(), deletes ? "3 C:\\Data\\one.txt;;> ;| 16" : "nothing");
  }
  Deleting.DeleteSelection(false);
  EXPECT_EQ(ShellDeletes, 1);
  Space.ShellVerbMode = 0;
  Answer<popDelete>([](popDelete& dialog) {
    EXPECT_TRUE(dialog.chkSendToRecycleBin.Checked && dialog.chkSendToRecycleBin.Visible);
    dialog.cmdDeleteClick();
  });
  Deleting.DeleteSelection(false);
  EXPECT_EQ(Asked(), "3 C:\\Data\\one.txt;;> ;| 80");
}

TEST_F(OperationsTest, RenamesWithTheCaretBeforeTheExtension) {
  Space.Lists[100].Rows().MoveCurrent(Row(100, "one.txt"));
  const auto rename = [this](const std::string& name) {
    Answer<popRename>([this, name, asked = 0](popRename& dialog) mutable {
      if (asked++ > 0) {  // with what was typed, and the user gives up
        EXPECT_EQ(dialog.txtDest.Text, name);
        EXPECT_TRUE(AllWatch());
        return dialog.cmdCancelClick();
      }
      dialog.txtDest.Text = name;
      dialog.cmdRenameClick();
    });
    Renaming.RenameItem(true);
  };
  Answer<popRename>([](popRename& dialog) {
    EXPECT_EQ(dialog.txtSource.Text + dialog.txtDest.Text, "one.txtone.txt");
    EXPECT_EQ(dialog.SelStart * 10 + dialog.SelLength, 30U);
    dialog.txtDest.Text = "größe";
    dialog.SelLength = 5;
    dialog.PositionCursor();
    EXPECT_EQ(dialog.SelLength, 5U);
    dialog.cmdCancelClick();
  });
  Renaming.RenameItem(true);
  for (const char* same : {"one.txt", "cancel", ""}) rename(same);
  EXPECT_NE(Row(100, "one.txt"), lister::NoRow);
  rename("z.txt");
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "z.txt"));
  rename("ONE.txt");
  EXPECT_NE(Row(100, "ONE.txt"), lister::NoRow);
  for (const char* bad : {"two", "Sub\\two", "..", "a?", "a.", "Nul.txt", "\t"}) rename(bad);
  ASSERT_EQ(Messages.Texts.size(), 7U);
  EXPECT_EQ(Messages.Texts[0], Sorry +
                                   "\r\n\r\nThe system returned the following message: "
                                   "\r\n\r\nFile exists"s);
  EXPECT_TRUE(Messages.Texts[1].ends_with("A name cannot hold the character \\."));
  EXPECT_TRUE(Messages.Texts[3].ends_with("any of these characters: / : * ? \" < > |"));
  EXPECT_TRUE(Messages.Texts[4].find("end in a dot") != std::string::npos);
  EXPECT_TRUE(Messages.Texts[5].find("a device of the computer") != std::string::npos);
  EXPECT_TRUE(Messages.Texts[6].ends_with("No item can be called so here. Type another name."));
  EXPECT_TRUE(Platform.Files.Exists("C:\\Data\\ONE.txt") && AllWatch());
  EXPECT_EQ(Noted(platform::CommandKind::Rename),
            (Texts{"C:\\Data\\one.txt > C:\\Data\\z.txt", "C:\\Data\\z.txt > C:\\Data\\ONE.txt"}));
}

TEST_F(OperationsTest, SaysWhyAnItemStaysBeforeAnyQuestion) {
  Select(100, "one.txt");
  Platform.Operation.Refused = "C:\\Data\\one.txt";
  Host.OnModal = [](forms::Form&) { FAIL(); };
  Deleting.DeleteSelection(false);
  Deleting.DeleteSelection(true);
  Renaming.RenameItem(true);
  Operations.FileOperate("move", 100, 101, "C:\\Other", false, "");
  EXPECT_EQ(Messages.Texts, (Texts{"Refused 3", "Refused 3", "Refused 4", "Refused 1"}));
  EXPECT_EQ(Asked() + std::to_string(ShellDeletes), "nothing0");
  EXPECT_TRUE(AllWatch());
}

TEST_F(OperationsTest, DuplicatesBesideTheItemAndTellsWhatFailed) {
  EXPECT_EQ(TimeStamp({2026, 1, 15, 14, 30, 0}), "260115-143000");
  EXPECT_EQ(StampedPath("C:\\Data\\report.final.txt", "-S"), "C:\\Data\\report.final-S.txt");
  EXPECT_EQ(StampedPath("C:\\a.b\\c", "-S"), "C:\\a-S.b\\c");
  DuplicateCommand duplicate(Platform.Files, Platform.Operation, Platform.Clock, Host, Messages);
  Platform.Operation.OnRun = [](const platform::OperationRequest& request) {
    return request.Items.find("two") == std::string::npos ? 0 : 13;
  };
  Platform.Operation.Holds = true;
  duplicate.DuplicateItems({"C:\\Data\\two", "C:\\a.b\\c", "C:\\Data\\one.txt"});
  EXPECT_EQ(Messages.Texts, Texts{});
  Platform.Operation.Finish();
  ASSERT_EQ(Platform.Operation.Requests.size(), 2U);
  EXPECT_TRUE(Asked().ends_with(".txt;| 1664"));
  EXPECT_EQ(Messages.Texts, (Texts{"There was an error duplicating the following items:"
                                   "\r\n\r\nC:\\Data\\two\r\nC:\\a.b\\c\r\n"}));
  duplicate.DuplicateItems({});
  EXPECT_EQ(Messages.Texts.size(), 1U);
}

TEST_F(OperationsTest, MakesANewFolderAndShowsIt) {
  // The user types the name and presses the button, and gives up when asked again.
  const auto create = [this](const std::string& name) {
    Answer<popNewFolder>([name](popNewFolder& dialog) {
      EXPECT_EQ(dialog.txtDest.Text, "C:\\Data\\");
      if (!dialog.txtNewFolderName.Text.empty()) {
        EXPECT_EQ(dialog.txtNewFolderName.Text, name);
        return dialog.cmdCancelClick();
      }
      dialog.txtNewFolderName.Text = name;
      dialog.cmdCopyClick();
    });
    MakingFolders.CreateNewFolder(true);
  };
  create("New");
  EXPECT_NE(Row(100, "New"), lister::NoRow);
  Space.CurrentList = 0;  // from the tree, whose own cursor stays
  const lister::RowId open = Space.Lists[0].Rows().CurrentRow();
  create("Tree");
  ASSERT_NE(Row(100, "Tree"), lister::NoRow);
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "Tree"));
  EXPECT_TRUE(Space.Lists[0].Rows().CurrentRow() == open && Space.CurrentList == 0);
  Platform.Files.Remove("C:\\Data\\Tree");
  Space.CurrentList = 100;
  create("New");  // a name that is taken
  EXPECT_EQ(std::exchange(Messages.Texts, {}),
            Texts{"Sorry, you cannot make a new folder here.\r\n\r\nThe system returned the "
                  "following message:\r\n\r\n     File exists"});
  for (const char* name : {"Sub\\New", "..", ".", "nul"}) create(name);
  EXPECT_EQ(std::exchange(Messages.Texts, {}).size(), 4U);
  EXPECT_EQ(Noted(platform::CommandKind::NewFolder),
            (Texts{" > C:\\Data\\New", " > C:\\Data\\Tree"}));
  create("cancel");
  create("");
  Host.OnModal = {};  // closed by its frame
  MakingFolders.CreateNewFolder(true);
  EXPECT_EQ(Space.Lists[100].Rows().ChildCount(lister::RootRow), 4);
  EXPECT_TRUE(AllWatch());  // the bracket is closed on every way
  Platform.Files.Remove("C:\\Data");
  MakingFolders.CreateNewFolder(true);
  EXPECT_EQ(Messages.Texts, Texts{"Sorry, you cannot make a new folder here."});
}

class DropItemsTest : public OperationsTest {
 protected:
  DropItemsTest() {
    OnDrop = [this](lister::ListId list, const lister::Drop& drop) {
      Command.DropItems(list, drop);
    };
    Platform.Operation.OnRun = [this](const platform::OperationRequest& request) {
      Log.push_back(InOneLine(request));
      return 0;
    };
    // The user presses the button of that word; none for an empty one.
    Host.OnModal = [this](forms::Form& form) {
      auto& dialog = dynamic_cast<popCopyMove&>(form);
      Log.push_back(dialog.txtSource.Text + "> " + dialog.txtDest.Text);
      EXPECT_EQ(dialog.Left * 2 + dialog.Width, Space.Form.Left * 2 + Space.Form.Width);
      if (!Typed.empty()) dialog.txtDest.Text = Typed;
      if (Button == "copy") dialog.cmdCopyClick();
      if (Button == "move") dialog.cmdMoveClick();
      if (Button == "cancel") dialog.cmdCancelClick();
    };
  }
  Texts Take() { return std::exchange(Log, {}); }

  std::string Button, Typed;
  Texts Log;
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
  Typed = "C:\\New";
  other.User().DropOn("C:\\Other", drop);
  EXPECT_EQ(Take(), (Texts{"one.txt, new.txt> C:\\Other\\",
                           "2 C:\\Data\\one.txt;C:\\Data\\new.txt;> C:\\New\\;"}));
  EXPECT_EQ(Fields.DialogResult, "copy");
  EXPECT_EQ(Fields.DialogDestination, Typed);
  Button = "cancel";
  Space.Lists[1].User().DropOn("*Net\\\\server\\share", drop);
  EXPECT_EQ(Take(), (Texts{"one.txt, new.txt> \\\\server\\share\\"}));
  Space.Lists[1].User().DropOn("", drop);
  EXPECT_EQ(Take(), Texts{});
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
    Typed = typed;
    Space.Lists[101].User().DropOn("C:\\Other", drop);
    EXPECT_EQ(Take().back(), "2 C:\\Data\\one.txt;> "s + target + ";");
  }
  // What cannot be is told, and the dialog comes again with it.
  const std::string bad = Typed = "..\\Data\\one.txt\\x";
  Messages.OnMessage = [this] { Typed = "..\\Data"; };
  Space.Lists[101].User().DropOn("C:\\Other", drop);
  EXPECT_EQ(Take(), (Texts{"C:\\Data\\one.txt> C:\\Other\\", "C:\\Data\\one.txt> " + bad,
                           "2 C:\\Data\\one.txt;> C:\\Data\\;"}));
  EXPECT_EQ(Messages.Texts, Texts{"No folder: C:\\Data\\one.txt"});
  Typed = bad;
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
