#include "platform/linux/posix/VolumeTraits.h"

#include <linux/magic.h>
#include <sys/vfs.h>

namespace tarnwell::platform {
namespace {

using VolumeType = decltype(statfs::f_type);

// Those that the system's own headers leave out, as statfs(2) and the kernel's sources tell them.
constexpr VolumeType ntfs = 0x7366746E;
constexpr VolumeType sharedFolders = 0x786F4256;  // of a virtual machine

struct Limits {
  VolumeType Type;
  VolumeTraits Traits;
};

constexpr Limits limits[] = {
    {MSDOS_SUPER_MAGIC, {false, true, false, false}},
    {EXFAT_SUPER_MAGIC, {false, true, false, false}},
    {FUSE_SUPER_MAGIC, {false, true, false, false}},     // whatever runs in user space
    {OVERLAYFS_SUPER_MAGIC, {true, false, true, true}},  // copies first what it only reads
    {SMB_SUPER_MAGIC, {false, true, false, false}},
    {CIFS_SUPER_MAGIC, {false, true, false, false}},
    {SMB2_SUPER_MAGIC, {false, true, false, false}},
    {sharedFolders, {false, true, false, false}},
    {ntfs, {true, true, true, false}},
    {V9FS_MAGIC, {true, true, true, false}},
};

}  // namespace

VolumeTraits TraitsOf(int folder) {
  struct statfs volume {};
  if (fstatfs(folder, &volume) != 0) return {};
  for (const Limits& each : limits) {
    if (each.Type == volume.f_type) return each.Traits;
  }
  return {};
}

}  // namespace tarnwell::platform
