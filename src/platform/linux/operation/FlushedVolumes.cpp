#include "platform/linux/operation/FlushedVolumes.h"

#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tarnwell::platform {
namespace {

constexpr unsigned long xfsMagic = 0x58465342;  // has no name in the system's headers

// Local file systems, of which syncfs tells whether all went well.
constexpr std::array<unsigned long, 7> flushedAsWhole = {
    EXT4_SUPER_MAGIC, xfsMagic,    BTRFS_SUPER_MAGIC, F2FS_SUPER_MAGIC,
    TMPFS_MAGIC,      RAMFS_MAGIC, MSDOS_SUPER_MAGIC};

bool CanFlushWhole(int item) {
  if ((fcntl(item, F_GETFL) & O_PATH) != 0) return false;
  struct statfs found {};
  if (fstatfs(item, &found) != 0) return false;
  const auto type = static_cast<unsigned long>(found.f_type);
  return std::find(flushedAsWhole.begin(), flushedAsWhole.end(), type) != flushedAsWhole.end();
}

ErrorNumber FlushItem(int item) {
  while (fsync(item) != 0) {
    if (errno == EINTR) continue;
    // A folder held by its path alone, or of a file system that flushes no folders.
    return errno == EBADF || errno == EINVAL || errno == ENOTSUP ? NoError : errno;
  }
  return NoError;
}

// Network volumes tell of a full disk when a file is closed.
ErrorNumber AskWhetherTaken(int item) {
  const int again = fcntl(item, F_DUPFD_CLOEXEC, 0);
  if (again < 0) return errno;
  return close(again) == 0 || errno == EINTR ? NoError : errno;
}

}  // namespace

ErrorNumber FlushedVolumes::Take(int item, const struct statx& found) {
  Volume& volume = Find(item, found);
  if (!volume.Item) return toDisk_ ? FlushItem(item) : AskWhetherTaken(item);
  volume.HasNews = true;
  return NoError;
}

bool FlushedVolumes::TakeAll(int folder, const struct statx& found) {
  Volume& volume = Find(folder, found);
  volume.HasNews |= static_cast<bool>(volume.Item);
  return static_cast<bool>(volume.Item);
}

FlushedVolumes::Volume& FlushedVolumes::Find(int item, const struct statx& found) {
  const ItemIdentity device{found.stx_dev_major, found.stx_dev_minor, 0};
  for (Volume& known : volumes_) {
    if (known.Device == device) return known;
  }
  Descriptor held;
  if (CanFlushWhole(item)) held = Descriptor(fcntl(item, F_DUPFD_CLOEXEC, 0));
  volumes_.push_back({device, std::move(held), false});
  return volumes_.back();
}

ErrorNumber FlushedVolumes::Flush() {
  for (Volume& volume : volumes_) {
    if (!volume.HasNews) continue;
    if (syncfs(volume.Item.Get()) != 0) return errno;
    volume.HasNews = false;
  }
  return NoError;
}

}  // namespace tarnwell::platform
