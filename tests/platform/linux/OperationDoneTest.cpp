// What operations tell of their work, so that it can be taken back, and what they go by when it is.
#include <sys/sysmacros.h>

#include "OperationFixture.h"
#include "TestDesktop.h"
#include "platform/linux/afar/LinuxFarPlaces.h"
#include "platform/linux/afar/OperationVolumes.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/operation/TrashFinder.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

TEST(OperationVolumes, AreThoseOfTheFoldersWithoutACallToOtherMachines) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  const std::string root = fs::canonical(here.Path()).string();
  here.Make({"file=x", "link->" + there.Path(), "far/"});
  const LinuxFarPlaces far(std::vector<MountedVolume>{{.Id = 0,
                                                       .Device = "0:9",
                                                       .Root = "/",
                                                       .Path = root + "/far",
                                                       .Type = "nfs4",
                                                       .Source = "n:/"}});
  const auto volumes = [&](const std::vector<std::string>& items,
                           const std::vector<std::string>& to, int flags = 0,
                           FileFunction function = FileFunction::Move) {
    return VolumesOf({function, base::ItemList::TextOf(items), base::ItemList::TextOf(to),
                      static_cast<std::uint16_t>(flags)},
                     &far);
  };
  const auto nameOf = [](const std::string& path) {
    const dev_t device = StatOf(path).st_dev;
    return std::to_string(major(device)) + ":" + std::to_string(minor(device));
  };
  const std::string one = nameOf(root), other = nameOf(there.Path()), share = root + "/far";
  using Names = std::vector<std::string>;
  const Names both{std::min(one, other), std::max(one, other)};
  EXPECT_EQ(volumes({root + "/file"}, {root + "/"}), Names{one});
  EXPECT_EQ(volumes({root + "/file"}, {root + "/link"}), both);
  EXPECT_EQ(volumes({root + "/link"}, {}, 0, FileFunction::Delete), Names{one});
  EXPECT_EQ(volumes({root + "/link/x"}, {root + "/link/none/sub/"}), Names{other});
  EXPECT_EQ(volumes({root + "/far/a/b"}, {root + "/far/none"}), Names{share});
  EXPECT_EQ(volumes({root + "/file", root + "/x"}, {root + "/y", root + "/link/z"}, OwnTargets),
            both);
  EXPECT_EQ(volumes({root + "/link"}, {root + "/link2"}, 0, FileFunction::Rename), Names{one});
}

TEST(Fingerprints, TakeLinksForThemselvesAndTimesAsTheVolumeKeepsThem) {
  const TempFolder here;
  here.Make({"tree/sub/", "tree/link->x"});
  const ItemFingerprint before = FingerprintOf(here / "tree", true);
  EXPECT_EQ(FingerprintOf(here / "tree/link", true).Kind, std::uint32_t{S_IFLNK});
  utimensat(AT_FDCWD, (here / "tree/sub").c_str(), nullptr, 0);  // of folders what they hold tells
  EXPECT_EQ(FingerprintOf(here / "tree", true), before);

  // Where times are rounded, the same ones are found before that and after.
  struct statx found {};
  found.stx_mode = S_IFREG;
  const auto modified = [&](std::int64_t seconds, std::uint32_t rest) {
    found.stx_mtime.tv_sec = seconds;
    found.stx_mtime.tv_nsec = rest;
    return FingerprintOf(found, {.HasLastingNumbers = false, .HasFineTimes = false});
  };
  EXPECT_EQ(modified(7, 5), modified(6, 0));
  EXPECT_EQ(modified(-7, 5), modified(-8, 0));
  EXPECT_EQ(modified(7, 5).Device + modified(7, 5).Number, 0U);
}

TEST(OperationDone, TellsEachItemThatCanBeTakenBack) {
  for (const std::string& where : {testing::TempDir(), otherVolume}) {
    for (const bool moves : {false, true}) {
      const TempFolder here;
      const TempFolder there(where);
      here.Make({"d/f=new", "d/g=g", "d/l->f", "d/sub/deep/x=x", "d/empty/", "one=1",
                 "file/in=", "own/b=1"});
      there.Make({"d/f=old", "d/h=h", "d/empty/", "file=gives way"});
      fs::create_hard_link(here / "own/b", here / "own/c");
      ScriptedUser user;
      const OperationResult result =
          Do(user, moves ? FileFunction::Move : FileFunction::Copy,
             {here / "d", here / "one", here / "file", here / "own"}, there.Path(), NoConfirmation);
      EXPECT_EQ(result.Code, 0);
      std::set<std::string> told;
      std::istringstream text(Told(result, here.Path().size()));
      for (std::string each; text >> each;) {
        const std::size_t to = each.find('>') + 1;
        told.insert(each.substr(0, to) +
                    each.substr(to + there.Path().size() - here.Path().size()));
      }
      const std::string whole = moves ? "" : "*";
      EXPECT_EQ(told, (std::set<std::string>{"/d/g>/d/g", "/d/l>/d/l", "/d/sub>/d/sub" + whole,
                                             "/one>/one", "/own>/own" + whole}));
      EXPECT_EQ(result.Irrevocable, moves ? 3U : 2U);  // f, file; and the folder that has gone
      EXPECT_EQ(here.Names() == "", moves);
    }
  }
  const TempFolder here;
  here.Make({"a=a", "b/c="});
  ScriptedUser user;
  EXPECT_EQ(Told(Do(user, FileFunction::Rename, {here / "a"}, here / "z"), here.Path().size()),
            "/a>/z ");
  EXPECT_EQ(
      Told(Do(user, FileFunction::Copy, {here / "z", here / "b"}, here / "", RenameOnCollision),
           here.Path().size()),
      "/z>/z (2) /b>/b (2)* ");
  const OperationResult deleted = Do(user, FileFunction::Delete, {here / "z", here / "b"}, "");
  EXPECT_EQ(deleted.Irrevocable * 10 + deleted.Done.size(), 20U);
}

TEST(OperationDone, LeavesWhatChangesWhileAQuestionStands) {
  for (const std::string& where : {testing::TempDir(), otherVolume}) {
    const TempFolder here;
    const TempFolder there(where);
    here.Make({"changed=1"});
    there.Make({"changed=in the way"});
    struct : ScriptedUser {
      std::function<void()> Change;
      ConflictAnswer OnConflict(const OperationConflict& conflict) override {
        Change();
        return ScriptedUser::OnConflict(conflict);
      }
    } slow;
    slow.Conflict.Choice = ConflictChoice::Replace;
    slow.Change = [&] { Put(here / "changed", "3 by now"); };
    EXPECT_EQ(DoAll(slow, FileFunction::Move, {here / "changed"}, {there / ""}, 0,
                    {FingerprintOf(here / "changed", false)})
                  .Code,
              ESTALE);
    EXPECT_EQ(slow.Heard + Get(there / "changed"), "conflict:changed remark:changed in the way");
  }
}

TEST(OperationDone, SendsToTheTrashWhereThereIsOneAndTellsWhere) {
  const char* const home = getenv("HOME");
  if (home == nullptr || StatOf(home).st_dev != StatOf(desktop.Folder.Path()).st_dev) {
    GTEST_SKIP() << "the folder for temporary files lies on another volume than the trash";
  }
  const TempFolder here(desktop.Folder / "");
  const TempFolder noTrash(otherVolume);
  here.Make({"1/t.tar.gz=1", "2/t.tar.gz=22", "3/t.tar.gz=333", "1/dir/in=x", "2/dir/in=y",
             "new\nline=x", "link->new\nline"});
  ScriptedUser user;
  const std::vector<std::string> items{here / "1/t.tar.gz", here / "2/t.tar.gz", here / "1/dir",
                                       here / "3/t.tar.gz", here / "2/dir",      here / "new\nline",
                                       here / "link"};
  const OperationResult trashed = DoAll(user, FileFunction::Delete, items, {""}, AllowUndo);
  EXPECT_EQ(trashed.Code, 0);
  ASSERT_EQ(trashed.Done.size(), items.size());
  Told(trashed, 0);
  EXPECT_EQ(Get(trashed.Done[1].To) + Get(trashed.Done[3].To) + Get(trashed.Done[4].To + "/in"),
            "22333y");
  // What somebody has written to stays there.
  Put(trashed.Done[0].To, "written to");
  EXPECT_EQ(DoAll(user, FileFunction::Move, {trashed.Done[0].To}, {items[0]}, FromTrash,
                  {trashed.Done[0].Print})
                .Code,
            ESTALE);
  EXPECT_EQ(user.Heard, "remark:t.tar.gz ");

  noTrash.Make({"kept=", "gone="});
  const auto toTrash = [&](const std::string& item, int flags) {
    return DoAll(user, FileFunction::Delete, {item}, {""}, AllowUndo | flags).Code;
  };
  EXPECT_NE(toTrash(noTrash / "kept", NoConfirmation), 0);
  user.NoTrash = {NoTrashChoice::DeleteForGood, true};
  EXPECT_NE(toTrash(noTrash / "kept", NeverForGood), 0);
  EXPECT_EQ(toTrash(noTrash / "gone", NoConfirmation), 0);
  EXPECT_EQ(toTrash(here / "none", 0), ENOENT);
  EXPECT_EQ(user.Heard, "remark:t.tar.gz remark:kept none:" + std::to_string(ENOENT) + " ");
  EXPECT_EQ(noTrash.Names(), "kept ");

  // In the trash of its own volume; what is another item there does not count.
  here.Make({"small/"});
  OnSmallVolume(here / "small", [&] {
    const std::string own = here / ("small/.Trash-" + std::to_string(geteuid()));
    here.Make({"small/sub/kept=x"});
    const Descriptor folder(open((here / "small/sub").c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct statx before;
    ASSERT_EQ(LookAt(folder.Get(), "kept", before), NoError);
    fs::create_directories(own + "/files/kept");
    fs::create_directory(own + "/info");
    fs::rename(here / "small/sub/kept", own + "/files/kept.2");
    TrashFinder finder;
    const auto found = finder.Find(folder.Get(), here / "small/sub/kept", before);
    EXPECT_TRUE(found && found->To == own + "/files/kept.2");
    fs::remove(own + "/files/kept.2");
    EXPECT_FALSE(finder.Find(folder.Get(), here / "small/sub/kept", before));
  });
}

}  // namespace
}  // namespace tarnwell::platform
