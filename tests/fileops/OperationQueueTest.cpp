#include "fakes/FakeOperationEngine.h"
#include "fakes/FakePlatform.h"
#include "fileops/OperationQueue.h"
#include "workspace/TestWorkspace.h"

namespace tarnwell::fileops {
namespace {

using platform::CommandKind;
using platform::FileFunction;
using platform::OperationId;
using platform::OperationRequest;
using platform::OperationResult;
using workspace::Texts;
using namespace std::string_literals;

OperationRequest CopyOf(const Texts& items, const std::string& folder) {
  return {.Function = FileFunction::Copy,
          .Items = base::ItemList::TextOf(items),
          .Destination = base::ItemList::TextOf({folder})};
}

class OperationQueueTest : public testing::Test {
 protected:
  OperationQueueTest() {
    Queue.OnEnd(
        [this](const OperationRecord& record, const OperationResult& result, std::int64_t took) {
          Log.push_back("end " + record.Title + " " + std::to_string(result.Code) + " " +
                        std::to_string(took));
        });
  }
  OperationId Start(const std::string& item, const std::string& folder,
                    CommandKind kind = CommandKind::Copy) {
    return Queue.Start({.Kind = kind, .Requests = {CopyOf({item}, folder)}});
  }
  void Follow(OperationId id, const std::string& word) {
    Queue.WhenDone(id, [this, word](const OperationResult& result) {
      Log.push_back(word + (result.Aborted ? " aborted" : ""));
    });
  }
  // Each by its title's name, with a mark of its state.
  std::string Shown() const {
    std::string text;
    for (const OperationRecord* const record : Queue.Records()) {
      text += std::to_string(record->Id) + (record->State == OperationState::Waiting ? "w" : "r");
      for (const auto& [on, letter] : {std::pair{record->IsQuiet, 'q'},
                                       {record->IsPaused, 'p'},
                                       {record->IsAsking, 'a'},
                                       {record->IsCancelling, 'c'}})
        if (on) text += letter;
      text += ' ';
    }
    return text;
  }
  Texts Take() { return std::exchange(Log, {}); }

  fakes::FakeOperationEngine Engine;
  fakes::FakeClock Clock;
  fakes::FakeNumberForms Forms;
  UndoHistory History;
  OperationQueue Queue{Engine, Clock, base::PathSyntax::Windows(), Forms, History};
  Texts Log;
};

TEST_F(OperationQueueTest, RunsOneAtATimeOnEachVolume) {
  const OperationId first = Start("C:\\a", "D:\\");
  Start("D:\\b", "E:\\");
  const OperationId third = Start("E:\\c", "F:\\");  // behind the second
  Start("G:\\d", "G:\\x\\");
  EXPECT_EQ(Shown(), "1rq 4rq 2w 3w ");
  Queue.MoveUp(third);  // nothing ahead of it keeps it any more
  EXPECT_EQ(Shown(), "1rq 4rq 3r 2w ");
  Queue.MoveUp(third);
  Engine.Done(0);
  EXPECT_EQ(Shown(), "4rq 3r 2w ");
  Queue.StartNow(2);
  EXPECT_EQ(Shown(), "4rq 3r 2r ");
  Start("F:\\e", "F:\\f\\");
  Queue.Pause(third, true);  // and keeps its volumes
  EXPECT_EQ(Shown(), "4rq 3rp 2r 5w ");
  Queue.Cancel(5);
  Queue.Cancel(5);
  Queue.Cancel(first);  // gone
  EXPECT_EQ(Take(),
            (Texts{"end Copying \"a\" to D:\\ 0 0",
                   "end Copying \"e\" to f " +
                       std::to_string(static_cast<int>(std::errc::operation_canceled)) + " 0"}));
  Engine.DoneAll();
  EXPECT_TRUE(Queue.IsIdle());
}

TEST_F(OperationQueueTest, ShowsWhatAsksOrTakesTime) {
  int changes = 0;
  Queue.OnChange([&] { ++changes; });
  const OperationId id =
      Queue.Start({.Kind = CommandKind::Duplicate,
                   .Requests = {CopyOf({"C:\\a"}, "C:\\a2"), {}, CopyOf({"C:\\b"}, "C:\\b2")}});
  const OperationRecord& record = *Queue.Find(id);
  const auto progress = [&](std::size_t run, std::int64_t at, std::uint64_t bytes) {
    Clock.Tick = at;
    platform::ProgressReport report{.Numbers = {}, .From = "C:\\a", .To = ""};
    report.Numbers.BytesDone = bytes;
    report.Numbers.BytesTotal = 2000;
    Engine[run].OnProgress(report);
  };
  progress(0, 499, 0);
  EXPECT_EQ(Shown() + record.Title, "1rq Duplicating 2 items");
  progress(0, 500, 1000);
  progress(0, 1500, 2000);
  EXPECT_EQ(record.Meter.BytesPerSecond(), 1333U);
  const std::uint64_t speed = record.Meter.BytesPerSecond();
  Queue.Pause(id, true);
  Queue.Pause(id, true);
  changes = 0;
  Engine[0].OnAsking(true);
  Queue.ShowQuestion(id);
  EXPECT_EQ(Shown() + Engine.Calls(0) + std::to_string(changes), "1rpa pq1");
  progress(0, 90'000, 2000);
  Queue.Pause(id, false);
  progress(0, 90'001, 2000);
  EXPECT_EQ(record.Meter.BytesPerSecond(), speed);  // it still asks
  Engine[0].OnAsking(false);
  Queue.Pause(id, true);
  Engine.Done(0, {.Code = 5});
  EXPECT_EQ(Engine.Calls(1) + Shown(), "p1rp ");
  progress(1, 90'002, 500);
  EXPECT_EQ(record.Report.Numbers.BytesDone, 2500U);
  EXPECT_EQ(record.Report.Numbers.BytesTotal, 4000U);
  Queue.WhenDone(id, [this](const OperationResult& result) {
    EXPECT_EQ(result.Codes, (std::vector{5, 0, 7}));
    Log.emplace_back("then");
  });
  Engine.Done(1, {.Code = 7});
  EXPECT_EQ(Take(), (Texts{"end Duplicating 2 items 5 90002", "then"}));
}

TEST_F(OperationQueueTest, FollowsEveryEnd) {
  // Within Settle, and asked again afterwards.
  Engine.OnSettle = [this] { Engine.Done(0); };
  const OperationId quick = Start("C:\\a", "C:\\b\\");
  Follow(quick, "quick");
  Follow(quick, "again");
  Follow(platform::NoOperation, "none");
  Follow(Queue.Start({}), "empty");
  EXPECT_EQ(Take(), (Texts{"end Copying \"a\" to b 0 0", "quick", "again", "none",
                           "end Working on 0 items 0 0", "empty"}));
  // Cancelled twice while it runs; it stops between two requests, though the first came through.
  Engine.OnSettle = {};
  const OperationId both =
      Queue.Start({.Kind = CommandKind::Copy,
                   .Requests = {CopyOf({"C:\\a"}, "D:\\"), CopyOf({"C:\\b"}, "D:\\")}});
  Queue.Pause(both, true);
  Queue.Cancel(both);
  Queue.Cancel(both);
  Queue.Pause(both, true);
  EXPECT_EQ(Engine.Calls(1) + Shown(), "pc3rqc ");
  // One that throws keeps nobody back, and one may start another and wait for it.
  Queue.WhenDone(both, [](const OperationResult&) { throw std::runtime_error("first"); });
  Queue.WhenDone(both, [this](const OperationResult&) {
    Follow(Start("C:\\c", "C:\\d\\"), "started");
    throw std::runtime_error("second");
  });
  Follow(both, "third");
  const OperationId waiting = Start("C:\\w", "C:\\x\\");
  Follow(waiting, "waited");
  try {
    Engine.Done(1);
    ADD_FAILURE();
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), "first"s);
  }
  EXPECT_EQ(Shown(), "4r 5w ");
  EXPECT_EQ(Take(), (Texts{"end Copying 2 items to D:\\ 0 0", "third aborted"}));
  Queue.Cancel(waiting);  // runs by now
  Engine.Done(2, {.Code = 1, .Aborted = true});
  Engine.DoneAll();
  EXPECT_EQ(Take(), (Texts{"end Copying \"w\" to x 1 0", "waited aborted",
                           "end Copying \"c\" to d 0 0", "started"}));
  // No thread for it: the command hears of it, and nothing waits for ever.
  Engine.Fails = true;
  EXPECT_THROW(Start("C:\\a", "C:\\b\\"), std::runtime_error);
  EXPECT_TRUE(Queue.IsIdle());
}

TEST_F(OperationQueueTest, ComesToItsEndWithTheProgram) {
  bool isIdle = false;
  Follow(Start("C:\\a", "C:\\b\\"), "runs");
  const OperationId waits = Start("C:\\c", "D:\\d\\");
  Follow(Start("D:\\e", "D:\\f\\"), "taken away");
  Queue.WhenDone(waits, [this](const OperationResult&) {
    Follow(Start("Z:\\new", "Z:\\x\\"), "started meanwhile");
  });
  Queue.Pause(1, true);
  Queue.WhenIdle([&] { isIdle = true; });
  Queue.CancelAll();
  EXPECT_EQ(Engine.Calls(0) + Shown(), "pl1rqc ");
  EXPECT_EQ(std::ranges::count(Log, "started meanwhile aborted"), 1);
  EXPECT_EQ(Take().back(), "taken away aborted");
  EXPECT_FALSE(isIdle);
  Engine.Done(0, {.Aborted = true});
  EXPECT_TRUE(isIdle);
  EXPECT_EQ(Take().back(), "runs aborted");
  // The end was called off; and one that lets work go on, with what waits.
  const OperationId last = Start("C:\\a", "C:\\b\\");
  Queue.WhenDone(last, [&](const OperationResult&) {
    isIdle = false;
    Queue.DropContinuations();
    Queue.WhenIdle([&] { isIdle = true; });
    Follow(last, "never");
  });
  Follow(last, "never");
  Follow(Start("C:\\c", "C:\\d\\"), "never");
  Engine.Done(1);
  EXPECT_FALSE(isIdle);
  Engine.Done(2);
  EXPECT_TRUE(isIdle);
  EXPECT_EQ(Take(), (Texts{"end Copying \"a\" to b 0 0", "end Copying \"c\" to d 0 0"}));
}

TEST_F(OperationQueueTest, NamesWhatIsInUseAndByWhat) {
  const auto refusal = [this](const char* item, FileFunction function = FileFunction::Delete) {
    return Queue.Refusal(function, base::ItemList::TextOf({"Q:\\other", item}));
  };
  Queue.Start({.Kind = CommandKind::Copy,
               .Requests = {CopyOf({"C:\\src\\a", "C:\\src\\b"}, "D:\\Up\\Docs\\")}});
  Queue.Start({.Kind = CommandKind::Restore,
               .Requests = {{.Function = FileFunction::Move,
                             .Items = "C:\\bin\\x\0C:\\bin\\y\0"s,
                             .Destination = "E:\\p\\one\0E:\\q\\two\0"s,
                             .Flags = platform::FromTrash}}});
  EXPECT_EQ(refusal("d:\\up"),
            "\"up\" cannot be deleted while it is in use by another operation: "
            "Copying 2 items to Docs.");
  EXPECT_EQ(refusal("C:\\bin\\y", FileFunction::Move),
            "\"y\" cannot be moved while it is in use by another operation: Restoring 2 items.");
  for (const char* used :
       {"C:\\src\\", "C:\\src\\b", "D:\\Up\\Docs", "D:\\Up\\Docs\\B", "E:\\q", "E:\\q\\two"}) {
    EXPECT_NE(refusal(used, FileFunction::Rename), "") << used;
  }
  for (const char* free :
       {"C:\\src\\c", "C:\\src\\a\\below", "D:\\Up\\Do", "D:\\Up\\Docs\\c", "E:\\qq", "C:\\sr"}) {
    EXPECT_EQ(refusal(free), "") << free;
  }
  EXPECT_EQ(refusal("C:\\src\\a", FileFunction::Copy), "");
  Engine.Refused = "Why not";
  EXPECT_EQ(refusal("D:\\Up"), "Why not");
  Engine.Refused.clear();
  Engine.DoneAll();
  EXPECT_EQ(refusal("d:\\up"), "");
}

TEST_F(OperationQueueTest, KeepsWhatCanBeUndone) {
  Engine.OnSettle = [this] {
    Engine.Done(Engine.Requests.size() - 1,
                {.Done = {{.From = "C:\\a", .To = "D:\\a"}}, .Irrevocable = 2});
  };
  for (const CommandKind kind : {CommandKind::Move, CommandKind::Undo, CommandKind::Redo})
    Start("C:\\a", "D:\\", kind);
  const UndoStep moved = History.Take(UndoWay::Undo);
  EXPECT_EQ(moved.Items.at(0).To + std::to_string(moved.Irrevocable), "D:\\a2");
  EXPECT_TRUE(moved.Kind == CommandKind::Move && moved.Operation == 1);
  EXPECT_EQ(History.Next(UndoWay::Undo), nullptr);
  Queue.NoteDone(CommandKind::NewFolder, {{.From = "", .To = "C:\\new"}});
  EXPECT_EQ(History.Next(UndoWay::Undo)->Items.at(0).Print.Below, 1U);
  Queue.NoteDone(CommandKind::Rename, {{.From = "C:\\old", .To = "C:\\new"}});
  EXPECT_EQ(History.Next(UndoWay::Undo)->Items.at(0).Print.Below, 0U);
  EXPECT_EQ(History.Next(UndoWay::Undo)->Operation, 3U);
}

}  // namespace
}  // namespace tarnwell::fileops
