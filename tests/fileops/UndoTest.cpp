#include "Test.h"
#include "base/ItemList.h"
#include "fakes/FakeOperationEngine.h"
#include "fakes/FakePlatform.h"
#include "fileops/UndoColours.h"
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
  const auto add = [&](const std::string& name, CommandKind kind = CommandKind::Move) {
    history.Add(StepOf(kind, {{"", name, {}}}));
  };
  for (int number = 1; number <= 102; ++number) add(std::to_string(number));
  add("gone", CommandKind::Delete);
  add("other", CommandKind::Other);
  for (int number = 102; number > 2; --number) {
    EXPECT_EQ(next(UndoWay::Undo), std::to_string(number));
    history.Finish(UndoWay::Undo, history.Take(UndoWay::Undo), {});
  }
  EXPECT_EQ(next(UndoWay::Undo) + next(UndoWay::Redo), "3");
  EXPECT_TRUE(history.Take(UndoWay::Undo).Items.empty());

  // Half of it comes back, and can be gone on with; what does nothing changes nothing.
  history.Take(UndoWay::Redo);
  history.Finish(UndoWay::Redo, StepOf(CommandKind::Move, {{"", "half", {}}}),
                 StepOf(CommandKind::Move, {{"", "rest", {}}}));
  history.Add({.Kind = CommandKind::Copy});
  EXPECT_EQ(next(UndoWay::Undo) + next(UndoWay::Redo), "halfrest");
  history.Add({.Kind = CommandKind::Copy, .Irrevocable = 1});
  EXPECT_EQ(next(UndoWay::Undo) + next(UndoWay::Redo), "half");
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

TEST(UndoRules, KeepWhatWasGivenUpAndWhatLiesBelow) {
  UndoStep step = StepOf(CommandKind::Copy, {{"", "/b/one", {}}, {"", "/b/two", {}}});
  step.Items[0].Print.Below = 7;
  const platform::OperationResult result{.Done = {{"/b/one", "/trash/one", {.Number = 3}}}};
  const UndoStep after = StepAfter(step, UndoWay::Undo, result);
  ASSERT_EQ(after.Items.size(), 1U);
  EXPECT_EQ(after.Items[0].Print, (platform::ItemFingerprint{.Number = 3, .Below = 7}));
  const UndoStep rest = RestOf(step, result);
  ASSERT_EQ(rest.Items.size(), 1U);
  EXPECT_EQ(rest.Items[0].To, "/b/two");

  // A move that was given up has left a copy.
  step = StepOf(CommandKind::Move, {{"/a/one", "/b/one", {}}, {"", "/b/copy", {}}});
  const auto requests = InverseOf(step, UndoWay::Undo);
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0].Items + requests[0].Destination, "/b/one\0/a/one\0"s);
  EXPECT_EQ(requests[1].Items, "/b/copy\0"s);
  EXPECT_EQ(requests[1].Flags, platform::AllowUndo | platform::NeverForGood);
  EXPECT_TRUE(
      StepAfter(step, UndoWay::Undo, {.Done = {{"/b/copy", "/trash/copy", {}}}}).Items.empty());
}

TEST(UndoColours, GoBackToWhatTheyWereUnlessTheyHaveChangedSince) {
  fakes::MemoryFileSystem files(base::PathSyntax::Windows());
  const auto colour = [&](const std::string& name) -> std::string& {
    return files.At("C:\\" + name).ExtendedAttributes[platform::ExtendedAttribute::Colour];
  };
  std::vector<lister::ColouredItem> items;
  for (const char* name : {"a", "b", "c", "d"}) {
    files.AddFile("C:\\" + std::string(name));
    colour(name) = "red";
    items.push_back({"C:\\" + std::string(name), "", "red"});
  }
  items[0].Before = "some other program's";
  colour("b") = "blue";
  files.Remove("C:\\c");
  ColourOutcome outcome = RestoreColours(items, files, [](std::size_t) { return true; });
  EXPECT_EQ(colour("a") + "," + colour("b") + "," + colour("d"), "some other program's,blue,");
  EXPECT_EQ(outcome.Left,
            (Texts{"b: it has got another colour since", "c: No such file or directory"}));
  outcome = RestoreColours(outcome.Done, files, [](std::size_t done) { return done < 1; });
  EXPECT_EQ(colour("a") + "," + colour("d"), "red,");
  ASSERT_EQ(outcome.Rest.size(), 1U);
  EXPECT_EQ(outcome.Rest[0].Path, "C:\\d");
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
  Command.NoteColours({{"C:\\Data\\a", "", "red"}, {"C:\\Data\\b", "blue", "red"}});
  EXPECT_EQ(Command.Caption(), "Undo: Colour of 2 items");
  Platform.Clock.TickStep = 60;
  Platform.Pump.Post([] {});
  Platform.Pump.Post([this] {
    Command.Undo();  // does nothing meanwhile
    Command.GiveUp();
  });
  Command.Undo();
  EXPECT_EQ(colour("a") + "," + colour("b"), ",red");
  EXPECT_TRUE(Status().starts_with("Undoing: Colour of 2 items, 1 of 2 items; stopped"));
  colour("b") = "cyan";
  Command.Undo();
  EXPECT_EQ(colour("b"), "cyan");
  EXPECT_EQ(Messages.Texts, (Texts{"These items keep the colour that they have:\r\n\r\n"
                                   "b: it has got another colour since"}));
  Command.Redo();
  EXPECT_EQ(colour("a") + Next(UndoWay::Undo) + Next(UndoWay::Redo), "redColour of \"a\"");
}

}  // namespace
}  // namespace tarnwell::fileops
