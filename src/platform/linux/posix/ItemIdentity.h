// What tells an item of the file system from every other, whatever its names.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>

#include "platform/CountedFiles.h"
#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

struct ItemIdentity {
  std::uint32_t Major = 0;
  std::uint32_t Minor = 0;
  std::uint64_t Number = 0;
  bool operator==(const ItemIdentity&) const = default;
};

struct HashItemIdentity {
  std::size_t operator()(const ItemIdentity& item) const {
    const std::uint64_t device = std::uint64_t{item.Major} << 32 | item.Minor;
    return static_cast<std::size_t>((item.Number ^ device) * 0x9E3779B97F4A7C15U);
  }
};

inline ItemIdentity IdentityOf(const struct statx& found) {
  return {found.stx_dev_major, found.stx_dev_minor, found.stx_ino};
}
inline FileIdentity FileIdentityOf(const struct statx& found) {
  return {std::uint64_t{found.stx_dev_major} << 32 | found.stx_dev_minor, found.stx_ino};
}

// Looks at an item without following or mounting anything; an empty name means the open item
// itself.
inline ErrorNumber LookAt(int folder, const char* name, struct statx& found) {
  constexpr int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_EMPTY_PATH;
  constexpr unsigned wanted = STATX_BASIC_STATS | STATX_BTIME | STATX_MNT_ID;
  return ErrorOf(statx(folder, name, flags, wanted, &found));
}

// Whether the content is still that of the earlier look, as far as size and time tell.
inline bool IsUnchanged(const struct statx& before, const struct statx& after) {
  return before.stx_size == after.stx_size && before.stx_mtime.tv_sec == after.stx_mtime.tv_sec &&
         before.stx_mtime.tv_nsec == after.stx_mtime.tv_nsec;
}

// Systems that do not tell mounts apart still tell the volumes.
inline bool IsSameMount(const struct statx& one, const struct statx& other) {
  if ((one.stx_mask & other.stx_mask & STATX_MNT_ID) != 0) {
    return one.stx_mnt_id == other.stx_mnt_id;
  }
  return one.stx_dev_major == other.stx_dev_major && one.stx_dev_minor == other.stx_dev_minor;
}

}  // namespace tarnwell::platform
