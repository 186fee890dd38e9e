#include "TestLists.h"
#include "lists/WatchPanes.h"

namespace tarnwell::lists {
namespace {

using workspace::Texts;

// Both lists of a pane watch the root of its drive.
class WatchPanesTest : public testing::Test, public TestLists {
 protected:
  WatchPanesTest() {
    for (const int pane : {0, 1, 2}) {  // the last one is closed
      const std::string drive(1, "EFG"[pane]);
      Platform.Drives.Volumes.push_back({drive, drive});
      OpenPane(pane, drive + ":\\");
    }
  }
  bool HasSeen(lister::ListId list) { return Row(list, "new") != lister::NoRow; }
  Texts Watched() const { return Platform.Watches.Watched(); }
};

TEST_F(WatchPanesTest, BracketEndsOnEveryWayOutButWhenLeftOpen) {
  const auto fail = [this] {
    const WatchBracket bracket(Space, [this] { WatchStartPanes(Space); });
    EXPECT_EQ(Watched(), Texts{});
    Platform.Files.AddFile("E:\\new");
    throw 1;
  };
  EXPECT_ANY_THROW(fail());
  EXPECT_EQ(Watched().size(), 6U);
  EXPECT_FALSE(HasSeen(100));  // the start tells nothing of what was
  WatchBracket(Space, [] { ADD_FAILURE(); }).LeaveOpen();
  EXPECT_EQ(Watched(), Texts{});
  WatchBracket(Space, [] { throw 1; });
}

TEST_F(WatchPanesTest, TakesOverWhatTheProgramChangedWhereNobodyTells) {
  Platform.Watches.Refuses = true;
  std::string folder = "E:\\";
  for (int pane = 0; pane < 3; ++pane) Space.Lists.Files(pane).LoadFolderContents(folder, true);
  {
    const WatchBracket bracket(Space, Space.Lists[100]);
    Platform.Files.AddFile("E:\\new");
    Space.Lists[101].LookAtDisk(lister::LookReason::User);
    EXPECT_FALSE(HasSeen(101));
  }
  EXPECT_TRUE(HasSeen(100) && HasSeen(101) && !HasSeen(102));
  WatchBracket(Space, [] {}).LeaveOpen();  // stopped, yet no open bracket
  Platform.Files.Remove("E:\\new");
  Space.Lists[101].LookAtDisk(lister::LookReason::User);
  EXPECT_FALSE(HasSeen(101));
}

TEST_F(WatchPanesTest, ResumesWhenTheLastOperationIsDone) {
  fakes::FakeFileOperation& work = Platform.Operation;
  work.Holds = true;
  Texts log;
  const auto begin = [&](const char* name) {
    WatchBracket bracket(Space, [&log, name, this] {
      log.push_back(std::string("resumes") + name);
      WatchResumePanesAll(Space);
    });
    bracket.EndAfter(work, work.Start({}), [&, name](const auto&) {
      log.emplace_back(name);
      EXPECT_GE(Space.OpenBrackets, 1);
      throw std::runtime_error(name);
    });
  };
  begin("1");
  begin("2");
  WatchBracket(Space, [] { ADD_FAILURE(); });
  EXPECT_EQ(Space.OpenBrackets, 0);
  Platform.Files.AddFile("E:\\new");
  Space.Lists[100].LookAtDisk(lister::LookReason::User);
  EXPECT_TRUE(HasSeen(100) && Watched().empty());
  EXPECT_THROW(work.Finish(), std::runtime_error);
  EXPECT_THROW(work.Finish(), std::runtime_error);
  EXPECT_EQ(log, (Texts{"1", "2", "resumes2"}));
  begin("3");
  {  // done while another command is open, as with a menu up
    const WatchBracket bracket(Space, [this] { WatchStartPanes(Space); });
    Platform.Files.AddFile("F:\\new");
    EXPECT_THROW(work.Finish(), std::runtime_error);
    EXPECT_TRUE(HasSeen(101) && Watched().empty());
  }
  EXPECT_EQ(Watched().size(), 6U);
  {  // none at all
    WatchBracket bracket(Space, [&] { WatchStartPanes(Space); });
    bracket.EndAfter(work, platform::NoOperation, [](const auto&) {});
    EXPECT_EQ(Watched().size(), 6U);
  }
  EXPECT_EQ(Space.OpenBrackets + Space.PaneBrackets + Space.OperationsAtWork, 0);
}

TEST_F(WatchPanesTest, ResumesOpenPanesButTwoListsOrAll) {
  WatchStopPanes(Space);
  for (const char* file : {"E:\\new", "F:\\new"}) Platform.Files.AddFile(file);
  WatchResumePanes(Space, 1, 100);
  EXPECT_EQ(Watched(), (Texts{"E:\\", "F:\\"}));
  EXPECT_TRUE(HasSeen(101) && !HasSeen(100));
  WatchStopPanes(Space);
  WatchResumePanesAll(Space);
  EXPECT_EQ(Watched(), (Texts{"E:\\", "E:\\", "F:\\", "F:\\", "G:\\", "G:\\"}));
  WatchStopPanes(Space);
  WatchResumePanes(Space, lister::NoList, lister::NoList);
  EXPECT_EQ(Watched(), (Texts{"E:\\", "F:\\", "E:\\", "F:\\"}));
}

}  // namespace
}  // namespace tarnwell::lists
