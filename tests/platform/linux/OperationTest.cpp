#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>

#include <csignal>

#include "OperationFixture.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/NameProbe.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/CopiedItems.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/NameSpelling.h"
#include "platform/linux/posix/TwinName.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

// The files and what they hold, and the empty folders.
std::string FilesBelow(const std::string& folder) {
  std::set<std::string> sorted;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string path = entry.path();
    if (entry.is_directory() && !fs::is_empty(entry)) continue;
    const std::string content = entry.is_directory() ? "/" : "=" + Get(path);
    sorted.insert(path.substr(folder.size() + 1) + content);
  }
  std::string files;
  for (const std::string& file : sorted) files += file + " ";
  return files;
}

// Small and large files, links and names of all kinds.
void MakeTree(const std::string& at) {
  fs::create_directories(at + "/sub/empty");
  fs::create_directories(at + "/shut");
  fs::create_directory(at + "/mixed");
  Put(at + "/mixed/in", "in");
  const std::string odd[] = {
      "-rf",    "new\nline",          "per%cent \"quoted\"", "no \xff\xfe UTF-8",
      "~ $(x)", std::string(255, 'n')};
  for (const std::string& name : odd) Put(at + "/sub/" + name, name, 0640);
  Put(at + "/tool", "#!/bin/true", 04751);
  Put(at + "/empty", "");
  Put(at + "/shut/large", std::string(1'200'000, 'L'), 0400);
  Put(at + "/sub/twice", "one file, two names");
  fs::create_hard_link(at + "/sub/twice", at + "/again");
  symlink("nowhere/at all", (at + "/dangling").c_str());
  symlink("sub", (at + "/to folder").c_str());
  setxattr((at + "/tool").c_str(), "user.tarnwell.color", "red", 3, 0);
  setxattr((at + "/sub").c_str(), "user.tarnwell.color", "blue", 4, 0);
  const int sparse = open((at + "/sparse").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
  EXPECT_EQ(pwrite(sparse, "middle", 6, 4 << 20), 6);
  EXPECT_EQ(ftruncate(sparse, 8 << 20), 0);
  close(sparse);
  const timespec times[] = {{1'000'000'000, 1}, {1'100'000'000, 123'456'789}};
  for (const char* name : {"/tool", "/dangling", "/sub/empty", "/shut", "/sub"}) {
    utimensat(AT_FDCWD, (at + name).c_str(), times, AT_SYMLINK_NOFOLLOW);
  }
  chmod((at + "/shut").c_str(), 0555);
}

TEST(Operation, CopiesAndMovesKeepEverything) {
  const TempFolder here;
  MakeTree(here / "tree");
  fs::create_hard_link(here / "tree/tool", here / "tree/shut/tool");
  struct {
    posix_acl_xattr_header Head{POSIX_ACL_XATTR_VERSION};
    posix_acl_xattr_entry Entries[5]{{ACL_USER_OBJ, 6, ~0U},
                                     {ACL_USER, 4, 1234},
                                     {ACL_GROUP_OBJ, 4, ~0U},
                                     {ACL_MASK, 4, ~0U},
                                     {ACL_OTHER, 0, ~0U}};
  } list;
  setxattr((here / "tree/empty").c_str(), "system.posix_acl_access", &list, sizeof list, 0);
  const auto original = Describe(here / "tree");
  for (const std::string& where : {testing::TempDir(), otherVolume}) {
    const TempFolder there(where);
    // What the target would hand down must not get into the copy.
    setxattr(there.Path().c_str(), "system.posix_acl_default", &list, sizeof list, 0);
    ScriptedUser user;
    EXPECT_EQ(Do(user, FileFunction::Copy, {here / "tree"}, there.Path() + "/").Code, 0);
    EXPECT_EQ(Describe(there / "tree"), original);
    EXPECT_TRUE(user.Last.ItemsDone == user.Last.ItemsTotal && user.Last.BytesTotal > 9'500'000);
    struct stat sparse {};
    stat((there / "tree/sparse").c_str(), &sparse);
    EXPECT_LT(sparse.st_blocks * 512, 1 << 20);
    EXPECT_EQ(Do(user, FileFunction::Move, {there / "tree"}, here / "moved").Code, 0);
    EXPECT_EQ(Describe(here / "moved"), original);
    EXPECT_EQ(there.Names(), "");
    EXPECT_EQ(Do(user, FileFunction::Delete, {here / "moved"}, "").Code, 0);
    EXPECT_EQ(user.Heard + here.Names(), "tree ");
  }
}

TEST(Operation, AsksAboutConflictsAndMerges) {
  using enum ConflictChoice;
  struct Case {
    ConflictChoice Choice;
    int Code;
    const char *Target, *Stays;  // what is there then, and still at the source of a move
  };
  const Case cases[] = {
      {Replace, EISDIR, "d/f.txt=new d/g=g d/h=h mixed/in=in other/kept=kept ", "other=file "},
      {Skip, EEXIST, "d/f.txt=old d/g=g d/h=h mixed=old other/kept=kept ",
       "d/f.txt=new mixed/in=in other=file "},
      {KeepBoth, 0,
       "d/f (2).txt=new d/f.txt=old d/g=g d/h=h mixed (2)/in=in mixed=old other (2)=file "
       "other/kept=kept ",
       ""},
      {Cancel, ECANCELED, "d/f.txt=old d/h=h mixed=old other/kept=kept ",
       "d/f.txt=new mixed/in=in other=file "},
  };
  for (const Case& each : cases) {
    for (const bool moves : {true, false}) {
      for (const std::string& where : {testing::TempDir(), otherVolume}) {
        const TempFolder from;
        const TempFolder to(where);
        from.Make({"d/f.txt=new", "mixed/in=in", "other=file"});
        if (each.Choice != Cancel) from.Make({"d/g=g"});  // which may have gone before
        to.Make({"d/f.txt=old", "d/h=h", "mixed=old", "other/kept=kept"});
        const std::string before = FilesBelow(from.Path());
        ScriptedUser user;
        user.Conflict = {each.Choice, true};
        const OperationResult result = Do(user, moves ? FileFunction::Move : FileFunction::Copy,
                                          {from / "d", from / "mixed", from / "other"}, to.Path());
        EXPECT_EQ(result.Code, each.Code);
        EXPECT_EQ(result.Aborted, each.Choice == Cancel);
        EXPECT_EQ(FilesBelow(to.Path()), each.Target);
        EXPECT_EQ(FilesBelow(from.Path()), moves ? each.Stays : before);
      }
    }
  }
  const TempFolder from;
  const TempFolder to(otherVolume);
  ScriptedUser user;
  user.Conflict = {ReplaceOlder, true};
  std::vector<std::string> files;
  for (const int later : {-1, 0, 1}) {
    const std::string name = std::to_string(later);
    files.push_back(from / name);
    from.Make({name + "=new"});
    to.Make({name + "=old"});
    for (const std::string& path : {from / name, to / name}) {
      const timespec times[] = {{}, {1000, path == files.back() ? 500 + later : 500}};
      utimensat(AT_FDCWD, path.c_str(), times, 0);
    }
  }
  EXPECT_EQ(Do(user, FileFunction::Move, files, to.Path()).Code, EEXIST);
  EXPECT_EQ(FilesBelow(to.Path()), "-1=old 0=old 1=new ");
  EXPECT_EQ(FilesBelow(from.Path()), "-1=new 0=new ");
}

// Every file under its own name is whole, the one that is replaced too.
void ExpectWhole(const std::string& from, const std::string& to) {
  for (const auto& entry : fs::recursive_directory_iterator(to)) {
    const std::string relative = entry.path().string().substr(to.size());
    EXPECT_EQ(relative.find("/.tarnwell-"), relative.npos) << relative;
    if (entry.is_regular_file() && Get(to + relative) != "old") {
      EXPECT_TRUE(Get(to + relative) == Get(from + relative)) << relative;
    }
  }
}

TEST(Operation, LeavesNothingHalfWhereverItIsCancelled) {
  const TempFolder here;
  const std::string from = here / "from";
  MakeTree(from);
  const auto original = Describe(from);
  for (const FileFunction function : {FileFunction::Copy, FileFunction::Move}) {
    bool cancelled = true;
    for (int at = 0; cancelled; ++at) {
      const TempFolder there(otherVolume);
      there.Make({"from/shut/large=old", "from/mixed=old"});
      ScriptedUser user;
      user.CancelAt = at;
      const OperationResult result =
          Do(user, function, {from}, there.Path(), NoConfirmation | Silent);
      cancelled = result.Aborted;
      EXPECT_EQ(result.Code, cancelled ? ECANCELED : 0);
      // What is new there is told of, with all that lies below it by then.
      std::string told = Told(result, there.Path().size());
      for (const auto& entry : fs::recursive_directory_iterator(there / "from")) {
        const std::string path = entry.path();
        const bool isTold = std::ranges::any_of(result.Done, [&](const DoneItem& item) {
          return path == item.To || path.starts_with(item.To + "/");
        });
        const bool isOld = path == there / "from/shut" || path.starts_with(there / "from/mixed") ||
                           path == there / "from/shut/large";
        EXPECT_NE(isTold, isOld) << path << told;
      }
      for (const DoneItem& item : result.Done) {
        const bool isThere = !item.From.empty() && fs::exists(fs::symlink_status(item.From));
        const bool mayBeThere = function == FileFunction::Copy || fs::is_directory(item.From);
        EXPECT_LE(isThere, mayBeThere) << item.To;
        const auto below = [](const std::string& path) { return FingerprintOf(path, true).Below; };
        const bool isMoved = function == FileFunction::Move && isThere;
        EXPECT_FALSE(isMoved && below(item.From) == below(item.To)) << item.To;
      }
      if (function == FileFunction::Copy) {
        ExpectWhole(from, there / "from");
        EXPECT_EQ(Describe(from), original);
      } else {
        // What is gone at the source has arrived.
        const auto isThere = [](const std::string& path) {
          return fs::exists(fs::symlink_status(path));
        };
        for (const auto& [path, text] : original) {
          if (path.find('=') != path.npos) continue;
          EXPECT_TRUE(isThere(from + path) || isThere(there / ("from" + path))) << path;
        }
        EXPECT_EQ(NamesBelow(there / "from").find(".tarnwell"), std::string::npos);
        if (!fs::exists(from) || Describe(from) != original) {
          fs::remove_all(from);
          MakeTree(from);
        }
      }
      ASSERT_LT(at, 500);
    }
  }
}

// Makes the files of a tree below the folder and gives what each holds, by its path below that.
std::map<std::string, std::string> MakeFiles(const TempFolder& folder, const std::string& above,
                                             int first) {
  std::map<std::string, std::string> files;
  for (int number = first; number < first + 30; ++number) {
    const std::string path =
        "tree/" + std::to_string(number % 5) + "/file" + std::to_string(number);
    const std::size_t size = number % 9 == 0 ? 1'500'000U : 5'000U + number;
    files[path].assign(size, static_cast<char>('A' + number));
    folder.Make({above + path + "=" + files[path]});
  }
  return files;
}

// TARNWELL_KILLS gives another number of kills.
TEST(Operation, MovesSideBySideToOtherVolumesSurviveBeingKilled) {
  const char* const kills = getenv("TARNWELL_KILLS");
  const int rounds = kills != nullptr ? std::atoi(kills) : 32;
  std::mt19937 chance(7);
  for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
    SCOPED_TRACE(round);
    const TempFolder here;
    const TempFolder there(otherVolume);
    // The second goes the other way, or to the same folder as the first, by the same names.
    const bool crosses = round % 2 == 0;
    const TempFolder& from = crosses ? there : here;
    const TempFolder& to = crosses ? here : there;
    struct Side {
      std::string From, To;
      std::map<std::string, std::string> Files;
    };
    const Side sides[] = {{here / "one/", there / "", MakeFiles(here, "one/", 0)},
                          {from / "two/", to / "", MakeFiles(from, "two/", 30)}};
    const auto move = [](const Side& side, ScriptedUser& user) {
      return fs::exists(side.From + "tree")
                 ? Do(user, FileFunction::Move, {side.From + "tree"}, side.To, NoConfirmation).Code
                 : 0;
    };
    const pid_t child = fork();
    if (child == 0) {
      ScriptedUser users[2];
      std::jthread second([&] { move(sides[1], users[1]); });
      move(sides[0], users[0]);
      second.join();
      _exit(0);
    }
    usleep(static_cast<useconds_t>(chance() % 30'000));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    // A folder that both have begun gets two names, that of a file is its own.
    const auto find = [](const Side& side, const std::string& path) {
      const fs::path name = fs::path(path).filename();
      for (const auto& top : fs::directory_iterator(side.To)) {
        if (!top.path().filename().string().starts_with("tree")) continue;
        for (const auto& entry : fs::recursive_directory_iterator(top)) {
          const std::string at = entry.path();
          const bool isHidden = at.find("/.tarnwell-") != at.npos;
          if (entry.path().filename() == name && !isHidden) return at;
        }
      }
      return side.To + path;
    };
    for (const Side& side : sides) {
      for (const auto& [path, content] : side.Files) {
        const std::string target = find(side, path);
        const bool arrived = Get(target) == content;
        EXPECT_TRUE(arrived || (Get(side.From + path) == content && !fs::exists(target))) << path;
      }
    }
    // The same again carries it through.
    for (const Side& side : sides) {
      ScriptedUser user;
      EXPECT_EQ(move(side, user), 0);
      for (const auto& [path, content] : side.Files) {
        EXPECT_TRUE(Get(find(side, path)) == content) << path;
      }
      EXPECT_EQ(user.Heard, "");
      EXPECT_TRUE(fs::is_empty(side.From));
    }
    for (const TempFolder* folder : {&here, &there}) {
      EXPECT_EQ(NamesBelow(folder->Path()).find(".tarnwell"), std::string::npos);
    }
  }
}

TEST(Operation, LeavesWhatCannotBeCopiedOrHasChanged) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  here.Make(
      {"tree/sub/fifo|", "tree/early=before", "tree/sub/large=" + std::string(20'000'000, 'x')});
  ScriptedUser user;
  bool changed = false;
  user.Meanwhile = [&] {
    if (changed || user.Asked < 20) return;  // in the middle of the large one
    changed = true;
    Put(here / "tree/early", "changed since");
    Put(here / "tree/come", "later");
    std::ofstream(here / "tree/sub/large", std::ios::app) << "more";
  };
  EXPECT_NE(Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code, 0);
  EXPECT_TRUE(changed);
  EXPECT_NE(user.Heard.find("fifo:" + std::to_string(EOPNOTSUPP)), std::string::npos) << user.Heard;
  EXPECT_NE(user.Heard.find("large:" + std::to_string(EBUSY)), std::string::npos) << user.Heard;
  EXPECT_NE(user.Heard.find("early:" + std::to_string(EBUSY)), std::string::npos) << user.Heard;
  EXPECT_EQ(NamesBelow(here.Path()),
            "tree tree/come tree/early tree/sub tree/sub/fifo tree/sub/large ");
  EXPECT_EQ(NamesBelow(there.Path()), "tree tree/early tree/sub ");

  // A copy has its original to go back to.
  ScriptedUser copier;
  copier.Meanwhile = [&] { std::ofstream(here / "tree/sub/large", std::ios::app) << "more"; };
  const auto size = fs::file_size(here / "tree/sub/large");
  EXPECT_EQ(Do(copier, FileFunction::Copy, {here / "tree/sub/large"}, there / "grown").Code, 0);
  EXPECT_EQ(copier.Heard, "remark:large ");
  EXPECT_GE(fs::file_size(there / "grown"), size);

  // Without windows nothing is asked, and the rest is done.
  ScriptedUser silent;
  const OperationResult result = Do(silent, FileFunction::Copy, {here / "none", here / "tree"},
                                    there / "new/", NoErrorWindows);
  EXPECT_EQ(result.Code, ENOENT);
  EXPECT_EQ(silent.Heard + Get(there / "new/tree/early"), "missing:new changed since");
}

TEST(CopiedItemsTest, NumbersCountOnlyWhereTheyLast) {
  CopiedItems copied;
  struct statx item {};
  item.stx_mode = S_IFREG;
  const auto find = [&](CopiedItems::Key key, std::uint64_t number, std::int64_t time) {
    item.stx_ino = number;
    item.stx_mtime.tv_sec = time;
    return copied.Find(key, item);
  };
  item.stx_ino = 4;
  for (const bool isLasting : {true, false}) {
    copied.Add(isLasting ? 1 : 2, item, {.HasLastingNumbers = isLasting});
  }
  EXPECT_EQ(find(1, 5, 0), CopiedItems::State::Changed);
  EXPECT_EQ(find(2, 5, 0), CopiedItems::State::Copied);
  EXPECT_EQ(find(2, 5, 1), CopiedItems::State::Changed);
  item.stx_mode = S_IFLNK;
  EXPECT_EQ(find(2, 5, 0), CopiedItems::State::Changed);
  EXPECT_EQ(find(3, 5, 0), CopiedItems::State::Unknown);
}

TEST(Operation, FullVolumesAndMountedOnes) {
  const TempFolder here;
  here.Make({"small/", "plain=x", "tree/large=" + std::string(5'000'000, 'x')});
  for (const char name : {'0', '1', '2', '3', '4', '5', '6', '7'}) {
    Put(here / "tree/" + name, std::string(400'000, 'x'));
  }
  ScriptedUser user;
  OnSmallVolume(here / "small", [&] {
    here.Make({"small/file=old"});
    EXPECT_EQ(
        Do(user, FileFunction::Copy, {here / "tree/large"}, here / "small/file", NoConfirmation)
            .Code,
        ENOSPC);
    EXPECT_EQ(FilesBelow(here / "small"), "file=old ");
    EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, here / "small/").Code, ENOSPC);
    // Some fit; all others, and nothing else, are still at the source.
    for (const auto& entry : fs::directory_iterator(here / "small/tree")) {
      EXPECT_EQ(fs::file_size(entry), 400'000U);
      EXPECT_FALSE(fs::exists(here / "tree" / entry.path().filename()));
    }
    EXPECT_TRUE(fs::exists(here / "tree/large"));
  });
  if (IsSkipped()) return;

  // What is touched in a layered folder counts as newly made.
  const TempFolder there(otherVolume);
  OnSmallVolume(here / "small", [&] {
    here.Make({"small/lower/file=x", "small/upper/", "small/scratch/", "small/whole/"});
    const std::string small = here / "small/", whole = small + "whole";
    const std::string layers =
        "lowerdir=" + small + "lower,upperdir=" + small + "upper,workdir=" + small + "scratch";
    const int fault = mount("none", whole.c_str(), "overlay", 0, layers.c_str()) == 0 ? 0 : errno;
    if (fault == ENODEV || fault == EPERM) return;  // the system has or gives no such folders
    ASSERT_EQ(fault, 0);
    EXPECT_EQ(Do(user, FileFunction::Move, {whole + "/file"}, there / "").Code, 0);
    EXPECT_EQ(NamesBelow(whole) + FilesBelow(there.Path()), "file=x ");
  });
  OnSmallVolume(here / "small", [&] {
    here.Make({"small/file=other volume"});
    Do(user, FileFunction::Delete, {here / "tree", here / "plain", here.Path()}, "");
    EXPECT_EQ(FilesBelow(here / "small"), "file=other volume ");
    EXPECT_EQ(user.Heard, ScriptedUser::NameOf(here.Path()) + ":" + std::to_string(EPERM) + " ");
  });
  EXPECT_EQ(here.Names(), "small ");
}

TEST(Operation, TakesNothingAwayThatTheUserLivesIn) {
  const TempFolder here;
  here.Make(
      {"data/me/share/own/", "users/me->../data/me", "top/volume/", "again/", "way->data", "me=x"});
  struct Case {
    FileFunction Function;
    const char *Item, *Sentence;
  };
  using enum FileFunction;
  const Case cases[] = {
      {Delete, "data/me", "The home folder cannot be deleted."},
      {Rename, "users/me", "The home folder cannot be renamed."},
      {Delete, "way/me", "The home folder cannot be deleted."},
      {Move, "again/me", "The home folder cannot be moved."},
      {Move, "data", "A folder that holds the home folder cannot be moved."},
      {Delete, "again/me/share/own", "The folder of the program's own files cannot be deleted."},
      {Delete, "data/me/share", "A folder that holds the program's own files cannot be deleted."},
      {Rename, "top/volume", "A folder on which a volume is mounted cannot be renamed."},
      {Move, "top", "A folder that holds a mounted volume cannot be moved."},
  };
  const auto before = Describe(here / "data");
  OnSmallVolume(here / "top/volume", [&] {
    if (mount((here / "data").c_str(), (here / "again").c_str(), nullptr, MS_BIND, nullptr) != 0) {
      _exit(LacksRight);
    }
    setenv("HOME", (here / "users/me").c_str(), 1);
    const std::string program = here / "data/me/share/own";
    struct : ScriptedUser {
      TroubleChoice OnTrouble(const OperationTrouble& trouble) override {
        Heard += trouble.Reason.Reason;
        return TroubleChoice::Skip;
      }
    } user;
    for (const Case& each : cases) {
      const std::string item = here / each.Item + '\0';
      for (const int flags : {0, int{AllowUndo}}) {
        user.Heard.clear();
        EXPECT_EQ(RunOperation({each.Function, item, here / "me (2)" + '\0',
                                static_cast<std::uint16_t>(flags)},
                               user, program)
                      .Code,
                  EPERM);
        EXPECT_EQ(user.Heard, each.Sentence);
      }
      EXPECT_EQ(ProtectedItems(program).Refusal(each.Function, item), each.Sentence);
      EXPECT_EQ(LinuxFileSystem(program).Rename(here / each.Item, here / "x").Code, EPERM);
    }
    user.Heard.clear();
    Do(user, Move, {here / "me"}, here / "users/", NoConfirmation);
    EXPECT_EQ(user.Heard, "The home folder cannot be replaced.");
    EXPECT_EQ(Do(user, Delete, {here / "me", here / "way"}, "").Code, 0);
  });
  if (IsSkipped()) return;
  EXPECT_EQ(here.Names(), "again data top users ");
  EXPECT_EQ(Describe(here / "data"), before);
}

TEST(Operation, GoesDeeperThanDescriptorsReach) {
  constexpr int depth = 5000;
  const TempFolder here(otherVolume);
  fs::create_directory(here / "top");
  Deepen(here / "top", depth, "m", [](int folder) {
    // A folder on either side of the way down, so that every level is come back to.
    for (const char* name : {"a", "z"}) mkdirat(folder, name, 0755);
    close(openat(folder, "file", O_WRONLY | O_CREAT, 0644));
  });
  ScriptedUser user;
  EXPECT_EQ(Do(user, FileFunction::Copy, {here / "top"}, here / "copy").Code, 0);
  for (const char* name : {"top", "copy"}) {
    FolderTotal total;
    LinuxFileSystem().MeasureFolder(
        here / name, [](auto&) { return true; }, total);
    EXPECT_TRUE(total.Files == depth && total.Folders == 3 * depth && total.Unreadable == 0);
  }
  EXPECT_EQ(Do(user, FileFunction::Delete, {here / "top", here / "copy"}, "").Code, 0);
  EXPECT_EQ(user.Heard + here.Names(), "");
}

TEST(Operation, RefusesWhatWouldDoHarm) {
  const TempFolder here;
  MakeTree(here / "tree");
  here.Make({"way in->" + here / "tree/sub"});
  const auto before = Describe(here.Path());
  for (const FileFunction function : {FileFunction::Copy, FileFunction::Move}) {
    for (const std::string& to :
         {here / "tree", here / "tree/sub/", here / "way in", here / "tree/sub/name"}) {
      ScriptedUser user;
      EXPECT_EQ(Do(user, function, {here / "tree"}, to).Code, EINVAL) << to;
      EXPECT_EQ(user.Heard, "tree:" + std::to_string(EINVAL) + " ");
    }
    ScriptedUser user;
    EXPECT_EQ(
        Do(user, function, {here / "tree/again"}, here / "tree/sub/twice", NoConfirmation).Code,
        EEXIST);
    EXPECT_EQ(Do(user, function, {here / "tree/tool"}, here / "none/tool").Code, ENOENT);
    EXPECT_EQ(Do(user, function, {"relative", here / "tree"}, here.Path()).Code, EINVAL);
    EXPECT_EQ(Do(user, function, {here / "tree/.."}, here.Path()).Code, EINVAL);
    EXPECT_EQ(Do(user, function, {}, here.Path()).Code, EINVAL);
    EXPECT_EQ(Do(user, function, {here / "tree"}, "").Code, EINVAL);
  }
  ScriptedUser user;
  EXPECT_EQ(Do(user, FileFunction::None, {here / "tree"}, here.Path()).Code, EINVAL);
  EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, here.Path()).Code, 0);  // is there
  EXPECT_EQ(Do(user, FileFunction::Delete, {"/"}, "").Code, EINVAL);
  EXPECT_EQ(Describe(here.Path()), before);

  // Deleting takes links themselves, at the top and below.
  here.Make({"gone/sub/out->" + here / "tree"});
  EXPECT_EQ(Do(user, FileFunction::Delete, {here / "gone", here / "way in"}, "").Code, 0);
  EXPECT_EQ(here.Names(), "tree ");
  EXPECT_EQ(Describe(here / "tree").size() + 2, before.size());
}

TEST(Operation, MakesTwinsAndRenamesWithoutOverwriting) {
  const TempFolder here;
  here.Make({"a.tar.gz=a", "d.x/"});
  ScriptedUser user;
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(Do(user, FileFunction::Copy, {here / "a.tar.gz", here / "d.x"}, here.Path() + "/",
                 RenameOnCollision)
                  .Code,
              0);
  }
  const OperationResult again =
      Do(user, FileFunction::Copy, {here / "a (2).tar.gz"}, here.Path(), RenameOnCollision);
  EXPECT_EQ(again.Code, 0);
  ASSERT_EQ(again.Placed.size(), 1U);
  EXPECT_EQ(again.Placed[0].To, here / "a (4).tar.gz");
  EXPECT_EQ(here.Names(), "a (2).tar.gz a (3).tar.gz a (4).tar.gz a.tar.gz d.x d.x (2) d.x (3) ");
  const auto twin = [](const std::string& name) {
    const TwinParts parts = SplitTwinName(name, false);
    return MakeTwinName(parts, parts.Number + 1, 14);
  };
  EXPECT_EQ(twin(".rc") + "|" + twin("n (0).t") + "|" + twin("(2)") + "|" + twin("n (9)"),
            ".rc (2)|n (0) (2).t|(2) (2)|n (10)");
  EXPECT_EQ(twin("12345\xC3\xA4\xC3\xA4.txt"), "12345 (2).txt");
  EXPECT_EQ(twin("x.extension long"), "x.extensio (2)");

  // What volumes without case ask.
  EXPECT_TRUE(IsSameButForCase("\xC3\x84rger.TXT", "a\xCC\x88rger.txt"));
  EXPECT_TRUE(IsSameButForCase("\xFF.A", "\xFF.a"));
  EXPECT_FALSE(IsSameButForCase("\xFE.A", "\xFF.a"));

  EXPECT_EQ(Do(user, FileFunction::Rename, {here / "a.tar.gz"}, here / "d.x").Code, EEXIST);
  fs::create_hard_link(here / "a.tar.gz", here / "A.TAR.GZ");
  EXPECT_EQ(RenameItem(here / "a.tar.gz", here / "A.TAR.GZ").Code, EEXIST);
  EXPECT_EQ(Do(user, FileFunction::Rename, {here / "a.tar.gz"}, here / "b\n").Code, 0);
  EXPECT_TRUE(RenameItem(here / "b\n", here / "b\n"));
  EXPECT_EQ(Get(here / "b\n"), "a");
  EXPECT_EQ(RenameItem(here / "none", here / "c").Code, ENOENT);

  const Descriptor folder(open(here.Path().c_str(), O_RDONLY | O_CLOEXEC));
  const std::string before = NamesBelow(here.Path());
  EXPECT_EQ(SpellingThere(folder.Get(), "A.TAR.GZ"), "A.TAR.GZ");
  EXPECT_EQ(TryName(folder.Get(), "a:b\n\xFF"), 0);
  EXPECT_EQ(TryName(folder.Get(), std::string(256, 'n')), ENAMETOOLONG);
  EXPECT_EQ(NamesBelow(here.Path()), before);
}

}  // namespace
}  // namespace tarnwell::platform
