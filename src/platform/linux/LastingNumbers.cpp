#include "platform/linux/LastingNumbers.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>

namespace tarnwell::platform {
namespace {

constexpr decltype(statfs::f_type) madeUp[] = {MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC,
                                               FUSE_SUPER_MAGIC,  SMB_SUPER_MAGIC,
                                               CIFS_SUPER_MAGIC,  SMB2_SUPER_MAGIC};

}  // namespace

bool HasLastingNumbers(int folder) {
  struct statfs volume {};
  return fstatfs(folder, &volume) == 0 && std::ranges::count(madeUp, volume.f_type) == 0;
}

}  // namespace tarnwell::platform
