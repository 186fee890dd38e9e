#include "platform/linux/posix/SeekFree.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/MountTable.h"

namespace tarnwell::platform {
namespace {

constexpr std::uint32_t xfsType = 0x58465342;  // "XFSB": in no header of the system's

constexpr std::array<std::uint32_t, 4> diskTypes = {EXT4_SUPER_MAGIC, xfsType, F2FS_SUPER_MAGIC,
                                                    BTRFS_SUPER_MAGIC};

// As the kernel tells it (Documentation/ABI/stable/sysfs-block); a partition has it from its disk.
bool IsStillDisk(unsigned major, unsigned minor) {
  const std::string device =
      "/sys/dev/block/" + std::to_string(major) + ":" + std::to_string(minor);
  for (const char* const place : {"/queue/rotational", "/../queue/rotational"}) {
    const Descriptor file(open((device + place).c_str(), O_RDONLY | O_CLOEXEC));
    char turns = '1';
    if (file && read(file.Get(), &turns, 1) == 1) return turns == '0';
  }
  return false;
}

// Some volumes have numbers that are no device's, and tell by their mounts where they lie.
bool IsMountOfStillDisk(const struct statx& found) {
  if ((found.stx_mask & STATX_MNT_ID) == 0) return false;
  for (const MountedVolume& mount : ReadMountTable()) {
    if (mount.Id != found.stx_mnt_id) continue;
    struct stat disk {};
    return mount.Source.starts_with('/') && stat(mount.Source.c_str(), &disk) == 0 &&
           S_ISBLK(disk.st_mode) &&
           IsStillDisk(gnu_dev_major(disk.st_rdev), gnu_dev_minor(disk.st_rdev));
  }
  return false;
}

}  // namespace

bool IsSeekFree(int folder) {
  struct statfs volume {};
  struct statx found;
  if (fstatfs(folder, &volume) != 0 || LookAt(folder, "", found) != NoError) return false;
  const auto type = static_cast<std::uint32_t>(volume.f_type);
  if (type == TMPFS_MAGIC) return true;
  if (std::ranges::count(diskTypes, type) == 0) return false;
  return found.stx_dev_major != 0 ? IsStillDisk(found.stx_dev_major, found.stx_dev_minor)
                                  : IsMountOfStillDisk(found);
}

}  // namespace tarnwell::platform
