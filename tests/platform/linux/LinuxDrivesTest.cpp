#include <gtest/gtest.h>

#include <cstdlib>

#include "TempFolder.h"
#include "platform/linux/DriveRules.h"
#include "platform/linux/LinuxDrives.h"

namespace tarnwell::platform {
namespace {

Mount Disk(const std::string& path, const std::string& source = "/dev/sdb1",
           const std::string& type = "ext4") {
  return {path, "label of " + path, source, type};
}

std::string NamesOf(const std::vector<Drive>& drives) {
  std::string names;
  for (const Drive& drive : drives) names += drive.Name + "=" + drive.Label + ";";
  return names;
}

TEST(DriveRules, ListsWhatAPersonWouldName) {
  Mount stick = Disk("/run/media/ann/stick");
  stick.Shown = true;
  Mount root = Disk("/");
  root.Internal = true;
  std::vector<Mount> mounts = {
      root,
      stick,
      Disk("/srv", "server:/export", "nfs4"),
      Disk("/data"),
      Disk("/data"),
      Disk("/boot/efi"),
      Disk("/var/lib/machines"),
      Disk("/etc/hosts"),
      Disk("/home/ann/.cache"),
      Disk("/opt/tool", "tool", "fuse.tool"),
  };
  EXPECT_EQ(NamesOf(DrivesOf("/home/ann", mounts)),
            "/home/ann=Home;/=File system;/data=label of /data;"
            "/run/media/ann/stick=label of /run/media/ann/stick;/srv=label of /srv;");
  mounts = {Disk("/home/ann")};
  EXPECT_EQ(NamesOf(DrivesOf("/home/ann", mounts)), "/home/ann=Home;/=File system;");
  EXPECT_EQ(NamesOf(DrivesOf("/", {})), "/=File system;");
  EXPECT_EQ(NamesOf(DrivesOf("", {})), "/=File system;");
}

TEST(DriveRules, FindsTheNearestVolume) {
  Mount home = Disk("/home/ann", "home.img", "ecryptfs");
  home.Internal = true;
  const std::vector<Mount> mounts = {Disk("/data"), Disk("/data/old"), Disk("/boot")};
  EXPECT_EQ(DriveHolding("/data/old/file", "/home/ann", mounts), "/data/old");
  EXPECT_EQ(DriveHolding("/data/older", "/home/ann", mounts), "/data");
  EXPECT_EQ(DriveHolding("/data", "/home/ann", mounts), "/data");
  EXPECT_EQ(DriveHolding("/database", "/home/ann", mounts), "/");
  EXPECT_EQ(DriveHolding("/boot/vmlinuz", "/home/ann", mounts), "/");
  EXPECT_EQ(DriveHolding("/home/ann/file", "/home/ann", mounts), "/");
  EXPECT_EQ(DriveHolding("/home/ann/file", "/home/ann", {home}), "/home/ann");
}

TEST(LinuxDrives, ReadsTheMountsOfThisMachine) {
  const TempFolder folder;
  const char* const old = std::getenv("HOME");
  const std::string before = old != nullptr ? old : "";
  LinuxDrives drives;
  setenv("HOME", (folder.Path() + "//").c_str(), 1);
  EXPECT_EQ(drives.HomeFolder(), folder.Path());
  const std::vector<Drive> list = drives.List();
  ASSERT_GE(list.size(), 2U);
  EXPECT_EQ(list[0].Name, folder.Path());
  EXPECT_EQ(list[1].Name, "/");
  for (const Drive& drive : list) EXPECT_NE(drive.Name, "/proc");
  EXPECT_EQ(drives.DriveOf("/proc/self"), "/");
  setenv("HOME", (folder / "missing").c_str(), 1);
  EXPECT_EQ(drives.HomeFolder(), "");
  EXPECT_EQ(drives.List().front().Name, "/");
  old != nullptr ? setenv("HOME", before.c_str(), 1) : unsetenv("HOME");
}

}  // namespace
}  // namespace tarnwell::platform
