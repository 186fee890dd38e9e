#include "TempFolder.h"
#include "platform/linux/posix/TemporaryName.h"
#include "platform/linux/system/DriveRules.h"
#include "platform/linux/system/LinuxCollation.h"
#include "platform/linux/system/LinuxSystemInfo.h"
#include "platform/linux/system/LinuxUserSettings.h"

namespace tarnwell::platform {
namespace {

// An installed program: bin, share/tarnwell with two skins and the tips.
class Installed : public testing::Test {
 protected:
  Installed() {
    root_.Make({"bin/", "share/tarnwell/skins/a.twk=a", "share/tarnwell/skins/b.twk=b",
                "share/tarnwell/TIPOFDAY.TXT=tips"});
    places_.ExecutableFolder = root_ / "bin";
    places_.HomeFolder = root_ / "home";
  }

  TempFolder root_;
  ProgramPlaces places_;
};

TEST_F(Installed, TakesTheUsersDataFolder) {
  const std::string folder = root_ / "home/.local/share/tarnwell";
  places_.DataHome = "relative";
  EXPECT_EQ(LinuxSystemInfo(places_).ProgramFolder(), folder);
  places_.DataHome = root_ / "data home";
  EXPECT_EQ(LinuxSystemInfo(places_).ProgramFolder(), root_ / "data home/tarnwell");
}

TEST_F(Installed, KnowsWhereItsGuideIsOrWouldBe) {
  const std::string page = root_ / "share/doc/tarnwell/guide/index.html";
  EXPECT_EQ(LinuxSystemInfo(places_).GuidePage(), page);
  for (const std::string found :
       {"guide/index.html", "bin/guide/index.html", "share/doc/tarnwell/guide/index.html"}) {
    root_.Make({found + "="});
    EXPECT_EQ(LinuxSystemInfo(places_).GuidePage(), root_ / found);
  }
}

TEST_F(Installed, ClearsAwayWhatAKilledRunHasLeft) {
  const std::string folder = root_ / "own";
  root_.Make({"own/skins/", "own/TIPOFDAY.TXT=mine"});
  InChild([&] {  // as one that was killed while it saved
    TemporaryName name;
    ASSERT_EQ(name.Renew(), NoError);
    Put(folder + "/" + name.Text(), "half");
  });
  places_.TarnwellHome = folder;
  const LinuxSystemInfo info(places_);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 2);
}

TEST_F(Installed, IsPortableWhereItsOwnFolderIsTheUsers) {
  std::filesystem::create_directories(root_ / "bin/skins");
  EXPECT_TRUE(LinuxSystemInfo(places_).IsPortable());
  places_.TarnwellHome = root_ / "new/own";
  root_.Make({"bin/data/skins/a.twk=a"});
  const LinuxSystemInfo moved(places_);
  EXPECT_EQ(moved.DataFolder(), root_ / "bin/data");
  EXPECT_FALSE(moved.IsPortable());
  std::filesystem::remove_all(root_ / "bin/data");

  places_.TarnwellHome.clear();
  std::filesystem::permissions(root_ / "bin", std::filesystem::perms(0555));
  InChild([&] {
    BecomeNobody();
    // The home cannot be made either: the path stands all the same.
    places_.HomeFolder = "/proc/missing";
    const LinuxSystemInfo info(places_);
    EXPECT_EQ(info.ProgramFolder(), "/proc/missing/.local/share/tarnwell");
    // The reason is that of the step that failed.
    EXPECT_EQ(info.FolderTrouble().Code, ENOENT);
  });
}

Mount Disk(const std::string& path, const std::string& source = "/dev/sdb1",
           const std::string& type = "ext4") {
  return {path, "label of " + path, source, type};
}

std::string NamesOf(const std::vector<Drive>& drives) {
  std::string names;
  for (const Drive& drive : drives) names += drive.Name + "=" + drive.Label + ";";
  return names;
}

TEST(LinuxUserSettings, KeepsANumberAndLosesNothingThatIsThere) {
  const TempFolder root;
  const std::string path = root / "config/tarnwell/tarnwell.conf";
  LinuxUserSettings settings(path);
  const auto read = [&] { return settings.ReadNumber("Options", "A b", 7); };
  const auto write = [&](int value) { return settings.WriteNumber("Options", "A b", value); };
  EXPECT_TRUE(read() == 7 && write(0) && read() == 0);
  Put(path, "# mine\n[Other]\nx=\xFF\n[Options]\nA b=3\n");
  EXPECT_TRUE(read() == 3 && write(1));
  EXPECT_EQ(Get(path), "# mine\n\n[Other]\nx=\xFF\n\n[Options]\nA b=1\n");
  for (const char* damaged : {"[Options]\nA b=many\n", "no settings", "[Options\n\x01=\n"}) {
    Put(path, damaged);
    EXPECT_TRUE(read() == 7 && write(2) && read() == 2) << damaged;
  }
  EXPECT_EQ(Get(path + ".unread") + Get(path + ".unread2"), "no settings[Options\n\x01=\n");

  std::filesystem::create_directory(root / "folder");
  EXPECT_EQ(LinuxUserSettings(root / "folder").WriteNumber("Options", "A b", 1).Reason,
            root / "folder: Is a directory");
  for (const char* each : {"config", "config/tarnwell"}) {
    ASSERT_EQ(chmod((root / each).c_str(), 0555), 0);
  }
  InChild([&] {
    BecomeNobody();
    EXPECT_TRUE(!write(5) && read() == 2);
  });
}

TEST(DriveRules, ListsWhatAPersonWouldName) {
  Mount stick = Disk("/run/media/ann/stick");
  stick.Shown = true;
  Mount root = Disk("/");
  root.Internal = true;
  std::vector<Mount> mounts = {root, stick, Disk("/srv", "server:/export", "nfs4"),
                               Disk("/opt/tool", "tool", "fuse.tool")};
  for (const char* path :
       {"/data", "/data", "/boot/efi", "/var/lib/machines", "/etc/hosts", "/home/ann/.cache"}) {
    mounts.push_back(Disk(path));
  }
  EXPECT_EQ(NamesOf(DrivesOf("/home/ann", mounts)),
            "/home/ann=Home;/=File system;/data=label of /data;"
            "/run/media/ann/stick=label of /run/media/ann/stick;/srv=label of /srv;");
  mounts = {Disk("/home/ann")};
  EXPECT_EQ(NamesOf(DrivesOf("/home/ann", mounts)), "/home/ann=Home;/=File system;");
  EXPECT_EQ(NamesOf(DrivesOf("/", {})), "/=File system;");
}

TEST(DriveRules, FindsTheNearestVolume) {
  Mount home = Disk("/home/ann", "home.img", "ecryptfs");
  home.Internal = true;
  const std::vector<Mount> mounts = {Disk("/data"), Disk("/data/old"), Disk("/boot"),
                                     Disk("/run/user/7/gvfs", "gvfsd-fuse", "fuse.gvfsd-fuse")};
  const char* const cases[][2] = {{"/data/old/file", "/data/old"},
                                  {"/data/older", "/data"},
                                  {"/data", "/data"},
                                  {"/database", "/"},
                                  {"/boot/vmlinuz", "/"},
                                  {"/home/ann/file", "/"},
                                  {"/run/user/7/gvfs/", "/"},
                                  {"/run/user/7/gvfs/sftp:host=a", "/run/user/7/gvfs/sftp:host=a"},
                                  {"/run/user/7/gvfs/dav:b/c/d", "/run/user/7/gvfs/dav:b"}};
  for (const auto& [path, drive] : cases) {
    EXPECT_EQ(DriveHolding(path, "/home/ann", mounts), drive) << path;
  }
  EXPECT_EQ(DriveHolding("/home/ann/file", "/home/ann", {home}), "/home/ann");
}

TEST(LinuxCollation, TakesBytesWhereThereAreNoRules) {
  for (const char* locale : {"C", "POSIX", "C.UTF-8", "no such locale"}) {
    const LinuxCollation order(locale);
    std::string key;
    order.AppendWeights("b–é\1x", key);
    EXPECT_EQ(key, "b–é\2x") << locale;
  }
}

}  // namespace
}  // namespace tarnwell::platform
