#include "OperationFixture.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

constexpr int Quietly = NoConfirmation | Silent | NoErrorWindows;

// What each item that was done came from and is called, a "*" where it was made with all below it.
std::string NamesDone(const OperationResult& result) {
  Told(result, 0);
  std::string names;
  for (const DoneItem& item : result.Done) {
    names += ScriptedUser::NameOf(item.From) + ">" + ScriptedUser::NameOf(item.To) +
             (item.Print.Below != 0 ? "* " : " ");
  }
  return names;
}

TEST(Operations, TellWhatTheyHaveDone) {
  BetweenFolders([](const TempFolder& here, const TempFolder& there) {
    here.Make({"d/f=new", "d/sub/g=g", "x=x", "y=y", "z=z", "w=w"});
    there.Make({"d/f=old.", "d/h=h", "d/sub/"});
    ScriptedUser user;
    const OperationResult copied =
        Do(user, FileFunction::Copy, {here / "d", here / "x"}, there / "", NoConfirmation);
    EXPECT_EQ(copied.Code, 0);
    EXPECT_EQ(NamesDone(copied), "g>g x>x ");
    EXPECT_EQ(copied.Irrevocable, 1U);  // the one that was replaced
    EXPECT_EQ(copied.Placed.size(), 2U);
    EXPECT_EQ(Get(there / "d/f") + Get(there / "d/sub/g") + Get(there / "d/h"), "newgh");
    EXPECT_EQ(NamesDone(Do(user, FileFunction::Copy, {here / "d"}, here / "e", Quietly)), "d>e* ");
    EXPECT_EQ(NamesDone(Do(user, FileFunction::Move, {here / "e", here / "y"}, there / "new/")),
              "e>e y>y ");
    EXPECT_EQ(user.Heard, "missing:new ");
    EXPECT_EQ(NamesDone(Do(user, FileFunction::Move, {here / "w", here / "z"}, there / "new/")),
              "w>w z>z ");
    EXPECT_EQ(Get(there / "new/e/sub/g") + here.Names(), "gd x ");
    const OperationResult replaced =
        Do(user, FileFunction::Move, {here / "x"}, there / "", NoConfirmation);
    EXPECT_EQ(replaced.Irrevocable * 10 + replaced.Done.size(), 10U);
    const OperationResult deleted =
        Do(user, FileFunction::Delete, {there / "d", there / "x"}, "", NoConfirmation);
    EXPECT_EQ(deleted.Irrevocable * 10 + deleted.Done.size(), 20U);
    EXPECT_EQ(there.Names() + std::to_string(deleted.Code), "new 0");
  });
}

TEST(Operations, LeaveWhatIsNotThereOrWouldDoHarm) {
  const TempFolder here;
  here.Make({"a=a", "d/sub/in=1", "to/"});
  for (const FileFunction function : {FileFunction::Copy, FileFunction::Move}) {
    ScriptedUser user;
    for (const std::string& to : {here / "d", here / "d/sub/", here / "d/sub/name"}) {
      EXPECT_NE(Do(user, function, {here / "d"}, to).Code, 0) << to;
    }
    for (const std::string& item : {std::string("relative"), here / "d/.."}) {
      EXPECT_NE(Do(user, function, {here / "a", item}, here / "to/").Code, 0) << item;
    }
    EXPECT_NE(Do(user, function, {here / "a"}, "").Code, 0);
    EXPECT_NE(DoAll(user, function, {}, {here / "to/"}, 0).Code, 0);
    EXPECT_EQ(PathOf(here / "d/sub/in"), *fs::directory_iterator(PathOf(here / "d/sub")));
  }
  ScriptedUser user;
  EXPECT_NE(Do(user, FileFunction::None, {here / "a"}, here / "to/").Code, 0);
  EXPECT_EQ(here.Names() + user.Heard, "a d to ");
  const OperationResult moved =
      Do(user, FileFunction::Move, {here / "none", here / "a"}, here / "to/");
  EXPECT_NE(moved.Code, 0);
  EXPECT_EQ(NamesDone(moved) + here.Names(), "a>a d to ");
  EXPECT_TRUE(user.Heard.starts_with("none:"));
}

TEST(Operations, RenameAllTogetherOrNone) {
  const TempFolder here;
  here.Make({"a=1", "b=2", "c=3", "taken="});
  const auto rename = [&](ScriptedUser& user, const std::vector<std::string>& from,
                          const std::vector<std::string>& to) {
    std::vector<std::string> items, targets;
    for (const std::string& name : from) items.push_back(here / name);
    for (const std::string& name : to) targets.push_back(here / name);
    return DoAll(user, FileFunction::Rename, items, targets, OwnTargets);
  };
  ScriptedUser user;
  const OperationResult circle = rename(user, {"a", "b", "x"}, {"x", "a", "b"});
  EXPECT_EQ(circle.Code, 0);
  EXPECT_EQ(circle.Placed.size(), 2U);
  EXPECT_EQ(Get(here / "a") + Get(here / "b") + here.Names(), "21a b c taken ");
  EXPECT_NE(rename(user, {"a", "b", "c"}, {"A2", "taken", "C2"}).Code, 0);
  EXPECT_TRUE(user.Heard.starts_with("b:")) << user.Heard;
  EXPECT_EQ(here.Names(), "a b c taken ");
  EXPECT_EQ(NamesDone(rename(user, {"a", "c"}, {"A", "C"})), "a>A c>C ");
  EXPECT_EQ(here.Names(), "A C b taken ");
  EXPECT_NE(Do(user, FileFunction::Rename, {here / "b"}, here / "taken").Code, 0);
  EXPECT_EQ(NamesDone(Do(user, FileFunction::Rename, {here / "A"}, here / "a")), "A>a ");
}

TEST(Operations, SendItemsToPathsOfTheirOwn) {
  BetweenFolders([](const TempFolder& here, const TempFolder& there) {
    here.Make({"a=a", "b/in=b", "c=c", "d=d", "e/", "f=f"});
    ScriptedUser user;
    const auto go = [&](const std::vector<std::string>& items,
                        const std::vector<std::string>& targets) {
      return DoAll(user, FileFunction::Move, items, targets, OwnTargets);
    };
    const OperationResult result =
        go({here / "a", here / "b", here / "c", here / "d", here / "e", here / "f"},
           {there / "new/sub/z", there / "b2", there / "other/y", there / "b2", here / "e/f/g",
            there / "f"});
    EXPECT_NE(result.Code, 0);
    EXPECT_EQ(NamesDone(result), "a>z b>b2 c>y f>f ");
    EXPECT_EQ(Get(there / "new/sub/z") + Get(there / "b2/in") + Get(there / "other/y"), "abc");
    for (const char* told : {"missing:sub ", "d:", "e:"}) {
      EXPECT_NE(user.Heard.find(told), std::string::npos) << user.Heard;
    }
    EXPECT_NE(go({here / "e", there / "b2"}, {here / "x"}).Code, 0);
    EXPECT_NE(go({here / "e"}, {here / "x/.."}).Code, 0);
    EXPECT_EQ(here.Names(), "d e ");
    EXPECT_TRUE(fs::is_empty(PathOf(here / "e")));
  });
}

TEST(Operations, LeaveWhatIsNotAsExpected) {
  BetweenFolders([](const TempFolder& here, const TempFolder& there) {
    here.Make({"same=1", "changed=1", "other=1", "gone=1", "up/moved=1", "tree/a/b=1"});
    const std::vector<std::string> items{here / "same", here / "changed",  here / "other",
                                         here / "gone", here / "up/moved", here / "tree"};
    std::vector<ItemFingerprint> expected;
    for (const std::string& item : items) expected.push_back(PrintOf(item, true));
    Put(here / "changed", "22");
    Put(here / "new", "1");
    fs::last_write_time(PathOf(here / "new"), fs::last_write_time(PathOf(here / "other")));
    fs::rename(PathOf(here / "new"), PathOf(here / "other"));
    fs::remove(PathOf(here / "gone"));
    fs::rename(PathOf(here / "up"), PathOf(here / "down"));
    Put(here / "tree/a/more", "");
    const std::string heard = "remark:changed remark:other remark:gone remark:moved remark:tree ";
    ScriptedUser user;
    const OperationResult moved = DoAll(user, FileFunction::Move, items, {there / ""}, 0, expected);
    EXPECT_EQ(user.Heard, heard);
    EXPECT_NE(moved.Code, 0);
    EXPECT_EQ(moved.Done.size(), 1U);
    EXPECT_EQ(there.Names(), "same ");
    user.Heard.clear();
    EXPECT_NE(DoAll(user, FileFunction::Delete, {items.begin() + 1, items.end()}, {""}, 0,
                    {expected.begin() + 1, expected.end()})
                  .Code,
              0);
    EXPECT_NE(DoAll(user, FileFunction::Rename, {items[1]}, {here / "x"}, 0, {expected[1]}).Code,
              0);
    EXPECT_EQ(user.Heard, heard + "remark:changed ");
    EXPECT_NE(DoAll(user, FileFunction::Delete, items, {""}, 0, {expected[0]}).Code, 0);
    EXPECT_EQ(here.Names(), "changed down other tree ");
  });
}

}  // namespace
}  // namespace tarnwell::platform
