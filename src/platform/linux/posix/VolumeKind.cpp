#include "platform/linux/posix/VolumeKind.h"

#include <gio/gunixmounts.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

namespace tarnwell::platform {
namespace {

// Types of file systems, from linux/magic.h.
constexpr std::array<std::uint32_t, 10> shares = {
    NFS_SUPER_MAGIC,  SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC, SMB2_SUPER_MAGIC, NCP_SUPER_MAGIC,
    CODA_SUPER_MAGIC, AFS_SUPER_MAGIC, AFS_FS_MAGIC,     CEPH_SUPER_MAGIC, V9FS_MAGIC};

// Programs that show folders or disks of this machine in another form, by the types of their
// mounts.
constexpr std::array<std::string_view, 12> localPrograms = {
    "fuse.bindfs",   "fuse.cryfs",   "fuse.encfs",          "fuse.exfat",
    "fuse.ext2",     "fuse.fatx",    "fuse.fuse-overlayfs", "fuse.gocryptfs",
    "fuse.mergerfs", "fuse.ntfs-3g", "fuse.securefs",       "fuse.unionfs"};

// The types of shares as the table of mounts has them.
constexpr std::array<std::string_view, 16> farTypes = {
    "9p",        "afs",    "autofs", "beegfs", "ceph", "cifs", "coda",  "gfs2",
    "glusterfs", "lustre", "ncpfs",  "nfs",    "nfs4", "smb3", "smbfs", "virtiofs"};

// Programs serve all kinds of volumes by FUSE; only the type of the mount tells which. One of a
// block device is a disk's. One that nothing is known of may hang.
bool IsLocalFuse(const Descriptor& folder, const std::string& path) {
  struct stat found {};
  if (fstat(folder.Get(), &found) == 0 && major(found.st_dev) != 0) return true;
  const std::unique_ptr<GUnixMountEntry, decltype(&g_unix_mount_free)> mount(
      g_unix_mount_for(path.c_str(), nullptr), &g_unix_mount_free);
  return mount && std::ranges::count(localPrograms, g_unix_mount_get_fs_type(mount.get())) > 0;
}

}  // namespace

bool IsFarType(std::string_view type) {
  if (type == "fuse" || type.starts_with("fuse.")) {
    return std::ranges::count(localPrograms, type) == 0;
  }
  return std::ranges::count(farTypes, type) > 0;
}

bool IsLocalVolume(const Descriptor& folder, const std::string& path) {
  struct statfs found {};
  if (fstatfs(folder.Get(), &found) != 0) return false;
  const auto type = static_cast<std::uint32_t>(found.f_type);
  if (type == FUSE_SUPER_MAGIC) return IsLocalFuse(folder, path);
  return std::ranges::count(shares, type) == 0;
}

}  // namespace tarnwell::platform
