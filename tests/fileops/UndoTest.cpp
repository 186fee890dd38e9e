#include "Test.h"
#include "fakes/FakeOperationEngine.h"
#include "fakes/FakePlatform.h"
#include "fileops/UndoCommand.h"
#include "fileops/UndoHistory.h"
#include "fileops/UndoRules.h"
#include "lists/TestLists.h"

namespace tarnwell::fileops {
namespace {

using platform::CommandKind;
using Texts = std::vector<std::string>;
using namespace std::string_literals;

UndoStep StepOf(CommandKind kind, std::vector<platform::DoneItem> items = {{"/a/x", "/b/y", {}}}) {
  return {.Kind = kind, .Items = std::move(items)};
}

TEST(UndoHistory, KeepsTheLastCommandsAndWhatWasUndoneUntilTheNext) {
  UndoHistory history;
  const auto next = [&](UndoWay way) {
    const UndoStep* const step = history.Next(way);
    return step == nullptr ? "" : step->Items[0].To;
  };
  for (int number = 1; number <= 102; ++number)
    history.Add(StepOf(CommandKind::Move, {{"", std::to_string(number), {}}}));
  for (const CommandKind kind : {CommandKind::Delete, CommandKind::Other})
    history.Add(StepOf(kind));
  for (int number = 102; number > 2; --number) {
    EXPECT_EQ(next(UndoWay::Undo), std::to_string(number));
    history.Finish(UndoWay::Undo, history.Take(UndoWay::Undo), {});
  }
  EXPECT_EQ(next(UndoWay::Undo) + next(UndoWay::Redo), "3");
  history.Add({.Kind = CommandKind::Copy});  // which did nothing
  EXPECT_EQ(next(UndoWay::Redo), "3");
  history.Add({.Kind = CommandKind::Copy, .Irrevocable = 1});
  EXPECT_EQ(next(UndoWay::Undo) + next(UndoWay::Redo), "");
  // The trash is emptied: what lay there under that name before was put back.
  for (const platform::DoneItem& item : {platform::DoneItem{"/old", "/trash/x", {}},
                                         {"/trash/x", "/old", {}},
                                         {"/new", "/trash/x", {}},
                                         {"/kept", "/trash/y", {}}})
    history.Add(StepOf(CommandKind::Trash, {item}));
  history.Forget({"/trash/x", "/trash/y"},
                 [](const std::string& path) { return path == "/trash/x"; });
  for (const char* const left : {"/trash/y", "/old", "/trash/x"})
    EXPECT_EQ(history.Take(UndoWay::Undo).Items.at(0).To, left);
}

TEST(UndoRules, SayWhatTakesAStepBackAndWhatItIsCalled) {
  struct Case {
    CommandKind Kind;
    const char *Undo, *UndoText, *Redo, *RedoText;
  };
  const auto tell = [](const UndoStep& step, UndoWay way) {
    const auto requests = InverseOf(step, way);
    EXPECT_EQ(requests.size(), 1U);
    const platform::OperationRequest& request = requests.at(0);
    EXPECT_EQ(request.Expected.size(), step.Items.size());
    std::string text = std::to_string(static_cast<int>(request.Function)) + " " + request.Items +
                       "> " + request.Destination + " " + std::to_string(request.Flags);
    std::ranges::replace(text, '\0', ';');
    return text;
  };
  const fakes::FakeNumberForms forms;
  const base::PathSyntax& syntax = base::PathSyntax::Posix();
  const char *const toTrash = "3 /b/y;> ; 4160", *const fromTrash = "1 /b/y;> /a/x; 2048",
                    *const back = "1 /b/y;> /a/x; 1";
  for (const Case& each :
       {Case{CommandKind::Copy, toTrash, "Copy of \"y\"", fromTrash, "Copy of \"x\""},
        {CommandKind::Duplicate, toTrash, "Duplicate of \"y\"", fromTrash, "Duplicate of \"x\""},
        {CommandKind::NewFolder, toTrash, "New folder \"y\"", fromTrash, "New folder \"x\""},
        {CommandKind::Shortcut, toTrash, "Shortcut \"y\"", fromTrash, "Shortcut \"x\""},
        {CommandKind::Move, back, "Move of \"y\"", back, "Move of \"x\""},
        {CommandKind::Rename, back, "Rename of \"x\"", back, "Rename of \"y\""},
        {CommandKind::Trash, fromTrash, "Deletion of \"x\"", toTrash, "Deletion of \"y\""},
        {CommandKind::Restore, toTrash, "Restore of \"y\"", fromTrash, "Restore of \"x\""}}) {
    const UndoStep step = StepOf(each.Kind);
    EXPECT_EQ(tell(step, UndoWay::Undo), each.Undo);
    EXPECT_EQ(tell(step, UndoWay::Redo), each.Redo);
    EXPECT_EQ(StepText(step, UndoWay::Undo, syntax, forms), each.UndoText);
    EXPECT_EQ(StepText(step, UndoWay::Redo, syntax, forms), each.RedoText);
  }
  // Another case of the same name is no other item where case does not count.
  EXPECT_EQ(tell(StepOf(CommandKind::Rename, {{"/a/x", "/a/X", {}}}), UndoWay::Undo),
            "4 /a/X;> /a/x; 0");
  const UndoStep many = StepOf(CommandKind::Trash, {1234, {"/a/x", "/b/y", {}}});
  EXPECT_EQ(StepText(many, UndoWay::Undo, syntax, forms), "Deletion of 1,234 items");
  const UndoStep odd = StepOf(CommandKind::Copy, {{"", "/a/\n" + std::string(300, 'x'), {}}});
  EXPECT_LT(StepText(odd, UndoWay::Undo, syntax, forms).size(), 75U);
  EXPECT_EQ(StepText(odd, UndoWay::Undo, syntax, forms).find('\n'), std::string::npos);
}

class UndoCommandTest : public lists::TestLists, public testing::Test {
 protected:
  UndoCommandTest() {
    for (const char* file : {"C:\\Data\\a", "C:\\Data\\b"}) Platform.Files.AddFile(file);
    OpenPane(0, "C:\\Data");
    Space.CurrentList = 100;
  }
  // A command that has moved the items there, from a folder of another drive.
  void Move(const Texts& names) {
    platform::OperationResult result;
    for (const std::string& name : names)
      result.Done.push_back({"D:\\" + name, "C:\\Data\\" + name, {.Number = name.size()}});
    Queue.Start({.Kind = CommandKind::Move,
                 .Requests = {{.Items = "D:\\x\0"s, .Destination = "C:\\Data\\\0"s}}});
    Engine.Done(Engine.Requests.size() - 1, result);
    Begun = Engine.Requests.size();
  }
  // How often the engine was asked since.
  std::size_t Asked() {
    return Engine.Requests.size() - std::exchange(Begun, Engine.Requests.size());
  }
  // What the engine is asked last, which then comes to that.
  std::string Come(const Texts& doneItems, bool aborts = false) {
    const platform::OperationRequest request = Engine.Requests.back();
    platform::OperationResult result{.Aborted = aborts};
    const bool undoes = request.Items.starts_with("C:");
    for (const std::string& name : doneItems) {
      result.Done.push_back({"C:\\Data\\" + name, "D:\\" + name, {}});
      if (!undoes) std::swap(result.Done.back().From, result.Done.back().To);
      result.Placed.push_back({result.Done.back().From, result.Done.back().To});
    }
    Engine.Done(Engine.Requests.size() - 1, result);
    return InOneLine(request);
  }
  std::string Next(UndoWay way) const {
    const UndoStep* const step = History.Next(way);
    return step == nullptr ? "" : StepText(*step, way, Platform.Files.Syntax(), Platform.Forms);
  }
  std::string Status() { return Space.Lists[100].Shown().Status; }

  std::size_t Begun = 0;
  fakes::FakeOperationEngine Engine;
  UndoHistory History;
  OperationQueue Queue{Engine, Platform.Clock, Platform.Files.Syntax(), Platform.Forms, History};
  UndoCommand Command{Space,
                      {Queue, History, Engine, Platform.Files, Platform.Pump, Platform.Clock,
                       Platform.Forms, Messages}};
};

TEST_F(UndoCommandTest, TakesBackWhatItCanAndGoesOnWithTheRest) {
  Command.Undo();
  EXPECT_TRUE(Status().starts_with("There is nothing to undo"));
  EXPECT_EQ(Command.Caption(), "");
  Move({"a", "b"});
  EXPECT_EQ(Command.Caption(), "Undo: Move of 2 items");
  Command.Undo();
  EXPECT_EQ(Queue.Records().at(0)->Title, "Undoing: Move of 2 items");
  EXPECT_TRUE(Platform.Watches.Watched().empty());
  Command.Undo();  // right after it: what is left waits, and goes where the first is given up
  ASSERT_EQ(Asked(), 1U);
  EXPECT_EQ(Engine.Requests.back().Expected.at(0).Number, 1U);
  EXPECT_EQ(Come({"a"}, true), "1 C:\\Data\\a;C:\\Data\\b;> D:\\a;D:\\b;");
  EXPECT_EQ(Asked(), 0U);
  EXPECT_FALSE(Platform.Watches.Watched().empty());
  EXPECT_EQ(Next(UndoWay::Undo) + Next(UndoWay::Redo), "Move of \"b\"Move of \"a\"");
  EXPECT_TRUE(Status().starts_with("Undone: Move of 2 items"));
  Command.Undo();
  Command.Redo();
  EXPECT_EQ(Come({"b"}), "1 C:\\Data\\b;> D:\\b;");
  EXPECT_EQ(Come({"b"}), "1 D:\\b;> C:\\Data\\b;");
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "b"));
  EXPECT_TRUE(Status().starts_with("Redone: Move of \"b\""));
  Command.Redo();
  Come({});  // all has changed since
  EXPECT_TRUE(Status().starts_with("Not done again: Move of \"a\""));
  EXPECT_EQ(Next(UndoWay::Redo) + Command.Caption(), "Undo: Move of \"b\"");
}

TEST_F(UndoCommandTest, AsksBesideLaterWorkAndStaysOutOfIt) {
  Move({"a"});
  Queue.Start({.Kind = CommandKind::Copy,
               .Requests = {{.Items = "E:\\x\0"s, .Destination = "E:\\y\\\0"s}}});
  for (const char* answer : {"NO", "", "YES"}) {
    Messages.Result = answer;
    Asked();
    Command.Undo();
    EXPECT_EQ(Asked(), Messages.Result == "YES" ? 1U : 0U);
    EXPECT_NE(Messages.Texts.back().find(Queue.Records().at(0)->Title), std::string::npos);
    EXPECT_NE(Messages.Texts.back().find("Undo: Move of \"a\""), std::string::npos);
  }
  Engine.DoneAll();
  // Another command is done while the question is open: it is asked about anew.
  Move({"a"});
  Queue.Start({.Kind = CommandKind::Copy,
               .Requests = {{.Items = "E:\\x\0"s, .Destination = "E:\\y\\\0"s}}});
  Messages.Texts.clear();
  Messages.OnMessage = [this] {
    if (Messages.Texts.size() == 1) Queue.NoteDone(CommandKind::Rename, {{"C:\\o", "C:\\n"}});
  };
  Command.Undo();
  EXPECT_EQ(Engine.Requests.back().Items, "C:\\n\0"s);
  Engine.DoneAll();

  Engine.Refused = "In use.";
  Asked();
  Command.Undo();
  EXPECT_EQ(Messages.Texts.back(), "In use.");
  EXPECT_EQ(Asked(), 0U);
  EXPECT_EQ(Next(UndoWay::Undo), "Move of \"a\"");
}

TEST_F(UndoCommandTest, GivesColoursBackUntilItIsGivenUp) {
  const auto colour = [&](const std::string& name) -> std::string& {
    return Platform.Files.At("C:\\Data\\" + name)
        .ExtendedAttributes[platform::ExtendedAttribute::Colour];
  };
  colour("a") = colour("b") = "red";
  Command.NoteColours({{"C:\\Data\\a", "another program's", "red"},
                       {"C:\\Data\\b", "blue", "red"},
                       {"C:\\none", "", "red"}});
  EXPECT_EQ(Command.Caption(), "Undo: Colour of 3 items");
  Platform.Clock.TickStep = 60;
  Platform.Pump.Post([] {});
  Platform.Pump.Post([this] {
    Command.Undo();  // does nothing meanwhile
    Command.GiveUp();
  });
  Command.Undo();
  EXPECT_EQ(colour("a") + "," + colour("b"), "another program's,red");
  EXPECT_TRUE(Status().starts_with("Undoing: Colour of 3 items, 1 of 3 items; stopped"));
  colour("b") = "cyan";
  Command.Undo();
  EXPECT_EQ(colour("b"), "cyan");
  EXPECT_EQ(Messages.Texts, (Texts{"These items keep the colour that they have:\r\n\r\n"
                                   "b: it has got another colour since\r\n"
                                   "none: No such file or directory"}));
  Command.Redo();
  EXPECT_EQ(colour("a") + Next(UndoWay::Undo) + Next(UndoWay::Redo), "redColour of \"a\"");
}

}  // namespace
}  // namespace tarnwell::fileops
