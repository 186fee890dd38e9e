#include <sys/mount.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdio>

#include "OperationFixture.h"
#include "RunUntil.h"
#include "TestDesktop.h"
#include "fakes/FakePlatform.h"
#include "fakes/TestFile.h"
#include "fuzz/TrashProperties.h"
#include "platform/linux/files/LinuxFolderWatch.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/trash/LinuxTrashCan.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

std::string NoteOf(const std::string& path, const std::string& date = "2026-11-22T04:00:00") {
  return "[Trash Info]\nPath=" + path + "\nDeletionDate=" + date + "\n";
}

// What was told by now.
struct TrashTold : TrashListener {
  std::map<std::uint64_t, TrashedItem> Items;
  std::vector<TrashTrouble> Troubles;
  int Settled = 0;

  void OnItems(std::vector<TrashedItem> items) override {
    for (TrashedItem& item : items) Items[item.Id] = item;
  }
  void OnGone(const std::vector<std::uint64_t>& ids) override {
    for (const std::uint64_t id : ids) EXPECT_EQ(Items.erase(id), 1U);
  }
  void OnTroubles(const std::vector<TrashTrouble>& troubles) override { Troubles = troubles; }
  void OnSettled() override { ++Settled; }

  // "name in folder state size", of each item; "?" for a size that is not known.
  std::string Text() const {
    std::set<std::string> lines;
    for (const auto& [id, item] : Items) {
      lines.insert(item.Name + " in " + item.Folder + " " +
                   std::to_string(static_cast<int>(item.State)) + " " +
                   (item.IsSizeKnown ? std::to_string(item.Size) : "?") + "\n");
    }
    std::string text;
    for (const std::string& line : lines) text += line;
    return text;
  }
};

// What the folder and all below it take up on the disk, as text.
std::string DiskUseOf(const std::string& folder) {
  std::int64_t blocks = StatOf(folder).st_blocks;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    blocks += StatOf(entry.path()).st_blocks;
  }
  return std::to_string(blocks * 512);
}

// A home folder and volumes of its own; a volume is a folder that is said to be one.
class LinuxTrashTest : public testing::Test {
 protected:
  std::string Home() const { return folder_ / "share/Trash"; }
  std::string OwnTrash(const std::string& volume) const {
    return folder_ / volume + "/.Trash-" + std::to_string(geteuid());
  }
  std::unique_ptr<TrashView> Follow(const std::string& drive = {}) {
    if (!can_) {
      can_.emplace(TrashPlaces{Home(), geteuid(), [this] { return volumes_; }}, watches_, drives_);
    }
    auto view = can_->Follow(told_, drive);
    EXPECT_TRUE(RunUntil([&] { return told_.Settled == 1; }));
    return view;
  }

  const TempFolder folder_;
  std::vector<std::string> volumes_;
  LinuxFolderWatch watches_;
  fakes::FakeDrives drives_{base::PathSyntax::Posix()};
  std::optional<LinuxTrashCan> can_;
  TrashTold told_;
};

TEST_F(LinuxTrashTest, ShowsEachItemForWhatItIs) {
  const std::string user = std::to_string(geteuid());
  folder_.Make({"share/Trash/files/a=1234",
                "share/Trash/info/a.trashinfo=" + NoteOf("/x/%41%ff%"),
                "share/Trash/files/below=1",
                "share/Trash/info/below.trashinfo=" + NoteOf("./b//c/"),
                "share/Trash/files/alone=12",
                "share/Trash/info/lost.trashinfo=" + NoteOf("/l/lost"),
                "share/Trash/files/up=",
                "share/Trash/info/up.trashinfo=" + NoteOf("/a/../etc/x"),
                "share/Trash/files/link=",
                "share/Trash/info/link.trashinfo->a.trashinfo",
                "share/Trash/files/pipe=",
                "share/Trash/info/pipe.trashinfo|",
                "share/Trash/files/bare=",
                "share/Trash/info/bare.trashinfo=Path=/x/y\n",
                "share/Trash/files/huge=",
                "share/Trash/info/huge.trashinfo=" + NoteOf("/" + std::string(1 << 20, 'x')),
                "share/Trash/files/root=",
                "share/Trash/info/root.trashinfo=" + NoteOf("/"),
                "share/Trash/files/odd->/etc",
                "share/Trash/info/odd.trashinfo=" + NoteOf("/o", "?"),
                "one/.Trash/" + user + "/files/s=",
                "two/.Trash/" + user + "/files/t=",
                "one/.Trash/" + user + "/info/s.trashinfo=" + NoteOf("sub/s"),
                "one/.Trash-" + user + "/files/abs=",
                "one/.Trash-" + user + "/info/abs.trashinfo=" + NoteOf("/etc/abs"),
                "three/.Trash-" + user + "->../one/.Trash-" + user,
                "three/.Trash->../one/.Trash",
                "four/"});
  chmod((folder_ / "one/.Trash").c_str(), 01777);
  for (const char* name : {"one", "two", "three", "four", "none"})
    volumes_.push_back(folder_ / name);
  const auto view = Follow();
  const std::string share = folder_ / "share", one = folder_ / "one";
  EXPECT_EQ(told_.Text(),
            "A\xff% in /x 0 4\nabs in  3 0\nalone in  1 2\nbare in  5 0\n"
            "c in " +
                share +
                "/b 0 1\nhuge in  5 0\nlink in  4 0\n"
                "lost in /l 2 0\no in / 0 4\npipe in  5 0\nroot in  5 0\n"
                "s in " +
                one + "/sub 0 0\nup in  3 0\n");
  std::set<std::string> troubles;
  for (const TrashTrouble& each : told_.Troubles)
    troubles.insert(each.Trash.substr(folder_.Path().size()) + " " +
                    std::to_string(each.Reason.Code));
  EXPECT_EQ(troubles,
            (std::set<std::string>{"/two/.Trash/" + user + " " + std::to_string(EPERM),
                                   "/three/.Trash/" + user + " " + std::to_string(ELOOP),
                                   "/three/.Trash-" + user + " " + std::to_string(ELOOP)}));
  for (const auto& [id, item] : told_.Items) {
    EXPECT_EQ(item.IsLink && item.Deleted == UnknownTime, item.Name == "o");
    if (item.Name == "lost") {
      EXPECT_EQ(item.Place, Home() + "/info/lost.trashinfo");
    } else if (item.Name == "s") {
      EXPECT_EQ(item.Place, one + "/.Trash/" + user + "/files/s");
      EXPECT_EQ(lister::IsoText(LinuxClock().ToLocal(item.Deleted)), "2026-11-22 04:00:00");
    }
  }
}

TEST_F(LinuxTrashTest, FollowsWhatOthersDo) {
  volumes_ = {folder_ / "one"};
  folder_.Make({"one/"});
  const auto view = Follow();
  const auto tells = [&](const std::string& text) {
    EXPECT_TRUE(RunUntil([&] { return told_.Text() == text; })) << told_.Text();
  };
  EXPECT_EQ(told_.Text(), "");
  folder_.Make({"share/Trash/info/a.trashinfo=" + NoteOf("/x/a"), "share/Trash/files/a=123",
                "share/Trash/info/d.trashinfo=" + NoteOf("/x/d"), "share/Trash/files/d/"});
  tells("a in /x 0 3\nd in /x 0 " + DiskUseOf(Home() + "/files/d") + "\n");
  const std::uint64_t first = told_.Items.begin()->first;
  fs::create_directories(OwnTrash("one") + "/files");
  Put(OwnTrash("one") + "/files/b", "1");
  fs::remove_all(Home() + "/files/d");
  tells("a in /x 0 3\nb in  1 1\nd in /x 2 0\n");
  EXPECT_EQ(told_.Items.begin()->first, first);
  // Another item takes the place of one that went.
  Put(Home() + "/info/a.trashinfo", NoteOf("/y/a"));
  fs::remove_all(Home() + "/info/d.trashinfo");
  tells("a in /y 0 3\nb in  1 1\n");
  EXPECT_FALSE(told_.Items.contains(first));
  volumes_.clear();
  view->Refresh();
  EXPECT_TRUE(RunUntil([&] { return told_.Settled == 2; }));
  EXPECT_EQ(told_.Text(), "a in /y 0 3\n");
  // The folders themselves go and come.
  fs::remove_all(Home());
  tells("");
  folder_.Make({"share/Trash/files/new=1"});
  tells("new in  1 1\n");
}

TEST_F(LinuxTrashTest, KeepsTheSizesOfFolders) {
  folder_.Make({"share/Trash/files/a b/sub/file=" + std::string(5000, 'x'),
                "share/Trash/info/a b.trashinfo=" + NoteOf("/x/a"), "share/Trash/files/known/",
                "share/Trash/info/known.trashinfo=" + NoteOf("/x/known"),
                "share/Trash/files/stale/", "share/Trash/files/loose/",
                "share/Trash/info/stale.trashinfo=" + NoteOf("/x/stale")});
  const auto noteTime = [&](const std::string& name) {
    return std::to_string(StatOf(Home() + "/info/" + name + ".trashinfo").st_mtim.tv_sec);
  };
  Put(Home() + "/directorysizes", "77 " + noteTime("known") + " known\n88 1 stale\nnoise\n");
  const auto view = Follow();
  const std::string large = DiskUseOf(Home() + "/files/a b");
  const std::string empty = DiskUseOf(Home() + "/files/stale");
  const std::string all = "a in /x 0 " + large + "\nknown in /x 0 77\nloose in  1 " + empty +
                          "\nstale in /x 0 " + empty + "\n";
  EXPECT_TRUE(RunUntil([&] { return told_.Text() == all; })) << told_.Text();
  const std::string kept = large + " " + noteTime("a b") + " a%20b\n77 " + noteTime("known") +
                           " known\n" + empty + " " + noteTime("stale") + " stale\n";
  EXPECT_TRUE(RunUntil([&] { return Get(Home() + "/directorysizes") == kept; }));

  ScriptedUser user;
  const std::string gone = Home() + "/files/known";
  EXPECT_EQ(Do(user, FileFunction::Delete, {gone}, "", FromTrash).Code, 0);
  EXPECT_EQ(Get(Home() + "/directorysizes").find("known"), std::string::npos);
  EXPECT_FALSE(fs::exists(Home() + "/info/known.trashinfo"));
}

TEST_F(LinuxTrashTest, PutsBackWithoutReplacingOrLeadingOut) {
  const std::string x = folder_ / "x", own = OwnTrash("one"), own_ = own.substr(own.rfind('/'));
  const auto put = [&](const std::string& trash, const std::string& name, const std::string& path) {
    fs::create_directories(trash + "/files");
    fs::create_directories(trash + "/info");
    Put(trash + "/files/" + name, "trashed");
    Put(trash + "/info/" + name + ".trashinfo", NoteOf(path));
    return trash + "/files/" + name;
  };
  const auto restore = [&](OperationUser& user, const std::string& place, const std::string& to) {
    return Do(user, FileFunction::Move, {place}, to, FromTrash).Code;
  };
  folder_.Make({"x/taken=mine", "one/", "outside/", "one/way->../outside"});
  ScriptedUser user;
  const std::string taken = put(Home(), "taken", x + "/taken");
  EXPECT_EQ(restore(user, taken, x + "/taken"), EEXIST);
  EXPECT_EQ(user.Heard + Get(x + "/taken") + Get(taken), "conflict:taken minetrashed");
  user.Conflict = {ConflictChoice::KeepBoth, false};
  EXPECT_EQ(restore(user, taken, x + "/taken"), 0);
  EXPECT_EQ(Get(x + "/taken (2)") + Get(x + "/taken"), "trashedmine");
  EXPECT_FALSE(fs::exists(Home() + "/info/taken.trashinfo"));

  // Restored by somebody else, whose place in the trash another one has got since.
  EXPECT_EQ(restore(user, taken, x + "/taken"), ENOENT);
  put(Home(), "taken", "/elsewhere/taken");
  EXPECT_EQ(restore(user, taken, x + "/taken"), EBUSY);

  const std::string deep = put(own, "deep", "sub/new/deep");
  EXPECT_EQ(restore(user, deep, folder_ / "one/sub/new/deep"), 0);
  EXPECT_EQ(Get(folder_ / "one/sub/new/deep"), "trashed");
  const std::string out = put(own, "out", "way/made/out");
  EXPECT_EQ(restore(user, out, folder_ / "one/way/made/out"), EXDEV);
  EXPECT_TRUE(fs::is_empty(folder_ / "outside") && fs::exists(out));

  // To another volume, and several at once.
  const TempFolder afar(otherVolume);
  const std::vector<std::string> many = {put(Home(), "b", afar / "b"), put(Home(), "c", x + "/c"),
                                         put(Home(), "d", afar / "d")};
  EXPECT_EQ(RunOperation({FileFunction::Move, base::ItemList::TextOf(many),
                          base::ItemList::TextOf({afar / "b", x + "/c", afar / "d"}), FromTrash},
                         user)
                .Code,
            0);
  EXPECT_EQ(afar.Names() + Get(afar / "d") + Get(x + "/c"), "b d trashedtrashed");
  EXPECT_FALSE(fs::exists(Home() + "/info/d.trashinfo"));
  EXPECT_EQ(restore(user, taken, "relative"), EINVAL);
  EXPECT_EQ(restore(user, x + "/taken", x + "/t"), EINVAL);
}

TEST_F(LinuxTrashTest, IsNotKeptWaitingByAVolumeThatHangs) {
  const std::string real = folder_ / "real", view = folder_ / "view";
  folder_.Make({"share/Trash/files/near=1",
                "real/.Trash-" + std::to_string(geteuid()) + "/files/far=22", "view/"});
  const pid_t server = fork();
  if (server == 0) {
    execlp("bindfs", "bindfs", "-f", real.c_str(), view.c_str(), nullptr);
    _exit(1);
  }
  const bool isServed = RunUntil(
      [&] { return fs::exists(OwnTrash("view")) || waitpid(server, nullptr, WNOHANG) == server; });
  if (!isServed || !fs::exists(OwnTrash("view"))) {
    GTEST_SKIP() << "bindfs is not installed, or may not mount";
  }
  volumes_ = {view};
  kill(server, SIGSTOP);
  const auto listing = Follow();
  EXPECT_EQ(told_.Text(), "near in  1 1\n");
  EXPECT_TRUE(told_.Troubles.size() == 1 && told_.Troubles[0].Trash == view);
  kill(server, SIGCONT);
  EXPECT_TRUE(RunUntil([&] { return told_.Troubles.empty() && told_.Items.size() == 2; }));
  umount2(view.c_str(), MNT_DETACH);
  kill(server, SIGTERM);
  waitpid(server, nullptr, 0);
}

// A trash program of another make, on the trash that GLib knows for this process.
std::string RunTrashProgram(const std::string& command) {
  FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
  std::string told;
  for (int byte; (byte = std::fgetc(pipe)) != EOF;) told += static_cast<char>(byte);
  return pclose(pipe) == 0 ? told : "failed: " + told;
}

TEST_F(LinuxTrashTest, WorksBesideOtherPrograms) {
  const TempFolder here;
  if (StatOf(here.Path()).st_dev != StatOf(desktop.Folder.Path()).st_dev ||
      RunTrashProgram("trash-list").starts_with("failed")) {
    GTEST_SKIP() << "no trash-cli, or the temporary files lie on another volume than the trash";
  }
  const std::string home = desktop.Folder / "Trash", odd = here / "a\n%41 \xc3\xa9";
  here.Make({"ours=1", "theirs=22", "both=333", "folder/in=4"});
  Put(odd, "odd");
  can_.emplace(TrashPlaces{home, geteuid(), [] { return std::vector<std::string>(); }}, watches_,
               drives_);
  const auto view = Follow();
  ScriptedUser user;
  EXPECT_EQ(Do(user, FileFunction::Delete, {here / "ours", here / "both"}, "", AllowUndo).Code, 0);
  const std::string cd = "cd " + here.Path() + " && ";
  EXPECT_EQ(RunTrashProgram(cd + "trash-put theirs folder a*"), "");
  const auto find = [&](const std::string& name) {
    const auto found = std::ranges::find_if(told_.Items, [&](const auto& each) {
      return each.second.Folder == here.Path() && each.second.Name == name;
    });
    return found == told_.Items.end() ? std::string() : found->second.Place;
  };
  const auto comesTo = [&](const std::string& name, bool isThere) {
    EXPECT_TRUE(RunUntil([&] { return find(name).empty() != isThere; })) << name;
  };
  for (const char* name : {"ours", "both", "theirs", "folder", "a\n%41 \xc3\xa9"})
    comesTo(name, true);
  const auto place = find("folder");

  // What each does the other sees.
  const std::vector<std::string> places = {find("theirs"), find("a\n%41 \xc3\xa9")};
  EXPECT_EQ(RunOperation({FileFunction::Move, base::ItemList::TextOf(places),
                          base::ItemList::TextOf({here / "theirs", odd}), FromTrash},
                         user)
                .Code,
            0);
  EXPECT_EQ(Get(here / "theirs") + Get(odd), "22odd");
  EXPECT_EQ(Do(user, FileFunction::Delete, {place}, "", FromTrash).Code, 0);
  const std::string told = RunTrashProgram("echo 0 | trash-restore " + here / "ours");
  EXPECT_EQ(Get(here / "ours"), "1") << told;
  const std::string left = RunTrashProgram("trash-list");
  EXPECT_TRUE(left.ends_with(here / "both" + "\n") && left.find("folder") == left.npos) << left;
  EXPECT_EQ(RunTrashProgram("trash-rm both"), "");
  for (const char* name : {"ours", "both", "theirs", "folder"}) comesTo(name, false);
}

TEST_F(LinuxTrashTest, ReadsAnyBytesAsNotesAndSizes) {
  for (const auto& entry : fs::directory_iterator(TARNWELL_TESTS "/fuzz/trash")) {
    const std::string name = entry.path().filename();
    const std::string content = fakes::ReadTestFile("fuzz/trash/" + name);
    for (std::size_t size = 0; size <= content.size(); ++size) {
      ASSERT_EQ(fuzz::BrokenTrashRule(std::string_view(content).substr(0, size)), "")
          << name << size;
    }
  }
}

}  // namespace
}  // namespace tarnwell::platform
