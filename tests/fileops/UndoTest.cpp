#include "Test.h"
#include "base/ItemList.h"
#include "fakes/FakePlatform.h"
#include "fileops/UndoColours.h"
#include "fileops/UndoHistory.h"
#include "fileops/UndoRules.h"
#include "lister/list/KeepColour.h"

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

}  // namespace
}  // namespace tarnwell::fileops
