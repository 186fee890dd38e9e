#include "platform/linux/posix/ItemStat.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <limits>

#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

constexpr unsigned WantedFields = STATX_BASIC_STATS | STATX_BTIME;

}  // namespace

ItemKind KindOfMode(std::uint32_t mode) {
  if (S_ISREG(mode)) return ItemKind::File;
  if (S_ISDIR(mode)) return ItemKind::Folder;
  return ItemKind::Other;
}

std::int64_t Nanoseconds(const statx_timestamp& time) {
  constexpr std::int64_t second = 1'000'000'000;
  constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / second - 1;
  return std::clamp<std::int64_t>(time.tv_sec, -limit, limit) * second + time.tv_nsec;
}

base::Status ReadItemStat(int folder, const char* path, ItemAttributes& attributes) {
  struct statx found;
  if (statx(folder, path, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, WantedFields, &found) != 0) {
    return SystemError(errno);
  }
  const bool isLink = S_ISLNK(found.stx_mode);
  attributes.IsBroken = false;
  if (isLink) {
    struct statx target;
    attributes.IsBroken = statx(folder, path, AT_NO_AUTOMOUNT, WantedFields, &target) != 0;
    if (!attributes.IsBroken) found = target;
  }
  attributes.Kind = KindOfMode(found.stx_mode);
  attributes.IsLink = isLink;
  attributes.Size = attributes.Kind == ItemKind::Folder ? 0 : found.stx_size;
  attributes.Modified = Nanoseconds(found.stx_mtime);
  attributes.Created =
      (found.stx_mask & STATX_BTIME) != 0 ? Nanoseconds(found.stx_btime) : UnknownTime;
  attributes.Accessed = Nanoseconds(found.stx_atime);
  attributes.Mode = found.stx_mode & 07777U;
  return {};
}

std::string ReadLinkTarget(int folder, const char* path) {
  std::string target(PATH_MAX, '\0');
  const ssize_t length = readlinkat(folder, path, target.data(), target.size());
  target.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return target;
}

}  // namespace tarnwell::platform
