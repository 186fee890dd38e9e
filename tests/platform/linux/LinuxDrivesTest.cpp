#include <gtest/gtest.h>

#include <cstdlib>

#include "TempFolder.h"
#include "platform/linux/system/DriveRules.h"
#include "platform/linux/system/LinuxDrives.h"

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
  std::vector<Mount> mounts = {root,
                               stick,
                               Disk("/srv", "server:/export", "nfs4"),
                               Disk("/data"),
                               Disk("/data"),
                               Disk("/boot/efi"),
                               Disk("/var/lib/machines"),
                               Disk("/etc/hosts"),
                               Disk("/home/ann/.cache"),
                               Disk("/opt/tool", "tool", "fuse.tool")};
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
  const std::vector<Mount> mounts = {Disk("/data"), Disk("/data/old"), Disk("/boot")};
  const char* const cases[][2] = {{"/data/old/file", "/data/old"},
                                  {"/data/older", "/data"},
                                  {"/data", "/data"},
                                  {"/database", "/"},
                                  {"/boot/vmlinuz", "/"},
                                  {"/home/ann/file", "/"}};
  for (const auto& [path, drive] : cases) {
    EXPECT_EQ(DriveHolding(path, "/home/ann", mounts), drive) << path;
  }
  EXPECT_EQ(DriveHolding("/home/ann/file", "/home/ann", {home}), "/home/ann");
}

}  // namespace
}  // namespace tarnwell::platform
