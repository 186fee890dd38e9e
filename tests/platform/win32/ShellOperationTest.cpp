#include "OperationFixture.h"
#include "platform/win32/shell/Com.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

// In place of the shell: does what it is told to do with each call, and answers so.
struct FakeShell {
  std::vector<ShellWork> Calls = {};
  std::function<ShellOutcome(const ShellWork& work)> Does = {};

  OperationResult Run(OperationUser& user, FileFunction function,
                      const std::vector<std::string>& items, const std::string& to, int flags = 0) {
    return RunOperation({function, base::ItemList::TextOf(items), base::ItemList::TextOf({to}),
                         static_cast<std::uint16_t>(flags)},
                        user, {}, [this](const ShellWork& work) {
                          Calls.push_back(work);
                          return Does(work);
                        });
  }
};

// With the times of files.
void CopyTo(const std::string& from, const std::string& to) {
  if (CopyFileW(LongPath(from).c_str(), LongPath(to).c_str(), TRUE) != 0) return;
  fs::create_directory(PathOf(to));
  for (const auto& entry : fs::directory_iterator(PathOf(from))) {
    const std::string name = "\\" + Narrow(entry.path().filename().native());
    CopyTo(from + name, to + name);
  }
}

TEST(ShellOperation, TwinsAreFoundUnderWhateverNameTheShellGives) {
  const TempFolder here;
  here.Make({"a.txt=a", "a b.txt=a", "d/in="});
  FakeShell shell;
  shell.Does = [&](const ShellWork& work) {
    EXPECT_EQ(work.Flags & RenameOnCollision, RenameOnCollision);
    CopyTo(here / "a.txt", here / "a - Copy.txt");
    CopyTo(here / "a b.txt", here / "a b - Copy.txt");
    CopyTo(here / "d", here / "d - Copy");
    here.Make({"other.txt=a"});
    return ShellOutcome();
  };
  ScriptedUser user;
  const OperationResult result =
      shell.Run(user, FileFunction::Copy, {here / "a b.txt", here / "a.txt", here / "d"}, here / "",
                RenameOnCollision);
  EXPECT_EQ(Told(result, here.Path().size()),
            R"(\a b.txt>\a b - Copy.txt \a.txt>\a - Copy.txt \d>\d - Copy* )");
  EXPECT_EQ(result.Code, 0);
  ASSERT_EQ(result.Placed.size(), 3U);
  EXPECT_EQ(result.Placed[2].To, here / "d - Copy");
}

TEST(ShellOperation, WhatIsLeftIsToldUnlessTheUserWasAsked) {
  const TempFolder here;
  here.Make({"a=a", "b=b", "to/a=old"});
  struct Case {
    ShellOutcome Outcome;
    int Flags;
    std::string Heard;
    bool IsAborted;
  };
  const Case cases[] = {
      {{ERROR_SHARING_VIOLATION, false}, 0, "a:32 ", false},
      {{ERROR_SHARING_VIOLATION, false}, NoErrorWindows, "", false},
      {{0, false}, NoConfirmation, "a:31 ", false},
      {{0, true}, 0, "", false},
      {{ERROR_CANCELLED, true}, 0, "", true},
      {{0x75, true}, 0, "", true},
  };
  for (const Case& each : cases) {
    FakeShell shell;
    shell.Does = [&](const ShellWork&) { return each.Outcome; };
    ScriptedUser user;
    const OperationResult result =
        shell.Run(user, FileFunction::Move, {here / "a", here / "b"}, here / "to/", each.Flags);
    EXPECT_EQ(user.Heard, each.Heard);
    EXPECT_EQ(result.Aborted, each.IsAborted);
    EXPECT_NE(result.Code, 0);
    EXPECT_EQ(result.Done.size() + result.Irrevocable + result.Placed.size(), 0U);
  }
  // Only what is left is tried again.
  FakeShell shell;
  shell.Does = [&](const ShellWork& work) {
    if (work.From.size() == 2) fs::rename(PathOf(here / "b"), PathOf(here / "to/b"));
    return ShellOutcome{work.From.size() == 2 ? ERROR_SHARING_VIOLATION : 0, false};
  };
  struct : ScriptedUser {
    TroubleChoice OnTrouble(const OperationTrouble& trouble) override {
      EXPECT_FALSE(trouble.Reason.Reason.empty());
      return Heard.empty() ? (ScriptedUser::OnTrouble(trouble), TroubleChoice::Retry)
                           : TroubleChoice::Skip;
    }
  } user;
  const OperationResult result =
      shell.Run(user, FileFunction::Move, {here / "a", here / "b"}, here / "to/");
  ASSERT_EQ(shell.Calls.size(), 2U);
  EXPECT_EQ(shell.Calls[1].From, std::vector<std::string>{here / "a"});
  EXPECT_EQ(Told(result, here.Path().size()), R"(\b>\to\b )");
}

TEST(ShellOperation, NothingCountsAsDoneByTheWordOfTheShellAlone) {
  const TempFolder here;
  here.Make({"whole=12345", "held=x", "to/"});
  const Handle held(CreateFileW(LongPath(here / "held").c_str(), GENERIC_READ, FILE_SHARE_READ,
                                nullptr, OPEN_EXISTING, 0, nullptr));
  FakeShell shell;
  shell.Does = [&](const ShellWork&) {
    Put(here / "to/whole", "123");
    return ShellOutcome();
  };
  ScriptedUser user;
  const OperationResult copied =
      shell.Run(user, FileFunction::Copy, {here / "whole"}, here / "to/", NoConfirmation);
  EXPECT_EQ(copied.Code, ERROR_HANDLE_EOF);
  EXPECT_EQ(copied.Placed.size(), 0U);
  EXPECT_EQ(shell.Run(user, FileFunction::Delete, {here / "held"}, "").Code,
            ERROR_SHARING_VIOLATION);
  EXPECT_EQ(user.Heard, "whole:38 held:32 ");
  shell.Run(user, FileFunction::Delete, {here / "whole"}, "", AllowUndo | NeverForGood);
  EXPECT_EQ(shell.Calls.back().Flags & NoConfirmation, NoConfirmation);  // as an undo is meant
}

TEST(ShellOperation, ACopyThatLacksSomethingBelowIsNotDone) {
  const TempFolder here;
  here.Make({"d/s/held=x", "d/s/z=z", "to/"});
  FakeShell shell;
  shell.Does = [&](const ShellWork&) {
    here.Make({"to/d/s/z=z"});
    return ShellOutcome();
  };
  const Handle held(CreateFileW(LongPath(here / "d/s/held").c_str(), GENERIC_READ, 0, nullptr,
                                OPEN_EXISTING, 0, nullptr));
  ScriptedUser user;
  const OperationResult result = shell.Run(user, FileFunction::Copy, {here / "d"}, here / "to/");
  EXPECT_EQ(user.Heard, "held:32 ");
  EXPECT_EQ(result.Code * 10 + result.Done.size(), ERROR_SHARING_VIOLATION * 10 + 1U);
  EXPECT_TRUE(result.Placed.empty());
}

TEST(ShellOperation, WhereTheShellDoesNotAskAMoveReplacesNothing) {
  const ComThread com;
  if (AsksToReplace()) GTEST_SKIP();
  const TempFolder here;
  here.Make({"a=new", "b=b", "d/b=other", "to/a=old"});
  ScriptedUser user;
  Do(user, FileFunction::Move, {here / "a", here / "b", here / "d/b"}, here / "to/");
  EXPECT_EQ(user.Heard, "a:183 ");
  EXPECT_EQ(Get(here / "a") + Get(here / "to/a") + Get(here / "to/b") + Get(here / "d/b"),
            "newoldbother");
}

TEST(ShellOperation, MovesThatMergeOrEndHalfwayTellWhatHasGone) {
  const TempFolder here;
  here.Make({"d/f=new", "d/g=g", "d/empty/", "d/sub/x=x", "d/sub/y=y", "half/1=1", "whole/1=1",
             "to/d/f=old.", "to/d/empty/", "to/d/sub/y=stays"});
  FakeShell shell;
  shell.Does = [&](const ShellWork&) {
    const auto move = [&](const std::string& name) {
      fs::rename(PathOf(here / name), PathOf(here / ("to/" + name)));
    };
    move("d/f");
    move("d/g");
    move("d/sub/x");
    fs::remove(PathOf(here / "d/empty"));
    CopyTo(here / "half", here / "to/half");
    CopyTo(here / "whole", here / "to/whole");
    fs::remove(PathOf(here / "half/1"));
    return ShellOutcome{ERROR_CANCELLED, true};
  };
  ScriptedUser user;
  const OperationResult result = shell.Run(
      user, FileFunction::Move, {here / "d", here / "half", here / "whole"}, here / "to/");
  std::istringstream told(Told(result, here.Path().size()));
  const std::set<std::string> parts{std::istream_iterator<std::string>(told), {}};
  EXPECT_EQ(parts, (std::set<std::string>{R"(\d\g>\to\d\g)", R"(\d\sub\x>\to\d\sub\x)",
                                          R"(\half>\to\half)", R"(>\to\whole*)"}));
  EXPECT_EQ(result.Irrevocable, 2U);  // f was replaced, and the empty folder has gone
  EXPECT_TRUE(result.Aborted);
}

TEST(ShellOperation, AFolderDoesNotGoIntoItselfByItsShortName) {
  const TempFolder here;
  here.Make({"a long folder/in/"});
  std::wstring brief(MAX_PATH, L'\0');
  const std::wstring in = Wide(here / "a long folder/in");
  brief.resize(GetShortPathNameW(in.c_str(), brief.data(), MAX_PATH));
  FakeShell shell;
  ScriptedUser user;
  shell.Run(user, FileFunction::Copy, {here / "a long folder"}, Narrow(brief) + "\\");
  EXPECT_EQ(user.Heard, "a long folder:87 ");
}

// The shell would take another item for such a one, or write behind the end of a buffer.
TEST(ShellOperation, WhatTheShellWouldMistakeIsLeftAndTold) {
  const TempFolder here;
  const std::string deep = std::string(120, 'd') + "/" + std::string(120, 'e');
  here.Make({"a=keep", "a.=1", "con=2", "blank =3", "ok=4", deep + "/f=5", "to/"});
  for (const FileFunction function : {FileFunction::Delete, FileFunction::Move}) {
    FakeShell shell;
    shell.Does = [](const ShellWork&) { return ShellOutcome(); };
    ScriptedUser user;
    const OperationResult result =
        shell.Run(user, function,
                  {here / "a.", here / "con", here / "blank ", here / (deep + "/f")}, here / "to/");
    EXPECT_EQ(user.Heard, "a.:123 con:123 blank :123 f:206 ");
    EXPECT_NE(result.Code, 0);
    EXPECT_TRUE(shell.Calls.empty());
  }
  ScriptedUser user;
  FakeShell shell;
  EXPECT_NE(shell.Run(user, FileFunction::Copy, {here / "ok"}, here / (deep + "/")).Code, 0);
  EXPECT_NE(shell.Run(user, FileFunction::Copy, {here / "ok"}, here / "to/aux/").Code, 0);
  EXPECT_EQ(user.Heard, "ok:206 aux:123 ");
  // Also where that lies further down: shells have deleted in their working folder then.
  for (const FileFunction function : {FileFunction::Delete, FileFunction::Copy}) {
    shell.Run(user, function, {here / std::string(120, 'd')}, here / "to/");
    EXPECT_TRUE(user.Heard.ends_with(std::string(120, 'e') + ":206 "));
  }
  EXPECT_TRUE(shell.Calls.empty());
  EXPECT_EQ(Get(here / "a") + Get(here / "a.") + Get(here / "blank "), "keep13");
}

TEST(ShellOperation, WhatIsHeldOpenOrProtectedStays) {
  const TempFolder here;
  here.Make({"held=x", "read only=x", "free=x"});
  const Handle held(CreateFileW(LongPath(here / "held").c_str(), GENERIC_READ, FILE_SHARE_READ,
                                nullptr, OPEN_EXISTING, 0, nullptr));
  SetFileAttributesW(LongPath(here / "read only").c_str(), FILE_ATTRIBUTE_READONLY);
  ScriptedUser user;
  EXPECT_EQ(Do(user, FileFunction::Delete, {here / "held"}, "", NoConfirmation | Silent).Code,
            ERROR_SHARING_VIOLATION);
  EXPECT_EQ(Do(user, FileFunction::Rename, {here / "held"}, here / "other").Code,
            ERROR_SHARING_VIOLATION);
  EXPECT_EQ(user.Heard, "held:32 held:32 ");
  EXPECT_NE(Do(user, FileFunction::Delete, {"C:\\"}, "", NoConfirmation | Silent).Code, 0);
  EXPECT_EQ(Do(user, FileFunction::Copy, {here / "free"}, "Q:\\none\\").Code, ERROR_INVALID_DRIVE);
  EXPECT_EQ(here.Names(), "free held read only ");
}

TEST(ShellOperation, ACircleOfNamesIsOnRecordWhileItLasts) {
  const TempFolder here;
  here.Make({"a=1", "b=2", "own/"});
  ScriptedUser user;
  std::set<std::string> records;
  user.Meanwhile = [&] { records.insert(Get(here / "own/aside.txt")); };
  const std::vector<std::string> from{here / "a", here / "b", here / "x"};
  const std::vector<std::string> to{here / "x", here / "a", here / "b"};
  EXPECT_EQ(RunOperation({FileFunction::Rename, base::ItemList::TextOf(from),
                          base::ItemList::TextOf(to), OwnTargets},
                         user, here / "own")
                .Code,
            0);
  EXPECT_EQ(records, std::set<std::string>{
                         base::ItemList::TextOf({from[0], to[0], from[1], to[1], from[2], to[2]})});
  EXPECT_FALSE(fs::exists(PathOf(here / "own/aside.txt")));
}

TEST(ShellOperation, TheBinGivesBackWhatWasDeleted) {
  const TempFolder here;
  here.Make({"sub/a.txt=1", "sub/d/in=2", "b=3"});
  const std::vector<std::string> items{here / "sub/a.txt", here / "sub/d", here / "b"};
  ScriptedUser user;
  const OperationResult trashed =
      DoAll(user, FileFunction::Delete, items, {""}, AllowUndo | NoConfirmation | NeverForGood);
  EXPECT_EQ(here.Names() + user.Heard, "sub ");
  ASSERT_EQ(trashed.Done.size(), items.size());
  std::vector<std::string> places, targets;
  std::vector<ItemFingerprint> expected;
  for (const DoneItem& item : trashed.Done) {
    places.push_back(item.To);
    targets.push_back(item.From);
    expected.push_back(item.Print);
  }
  EXPECT_EQ(std::set<std::string>(targets.begin(), targets.end()),
            std::set<std::string>(items.begin(), items.end()));
  const OperationResult back =
      DoAll(user, FileFunction::Move, places, targets, FromTrash, expected);
  EXPECT_EQ(back.Code, 0);
  EXPECT_EQ(back.Done.size(), items.size());
  EXPECT_EQ(Get(items[0]) + Get(here / "sub/d/in") + Get(items[2]) + user.Heard, "123");
  // Once only.
  EXPECT_NE(DoAll(user, FileFunction::Move, {places[0]}, {targets[0]}, FromTrash).Code, 0);
}

}  // namespace
}  // namespace tarnwell::platform
