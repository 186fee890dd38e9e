#include "platform/linux/operation/CopyAttributes.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <string>
#include <string_view>

namespace tarnwell::platform {
namespace {

constexpr std::string_view accessList = "system.posix_acl_access";
constexpr std::string_view defaultAccessList = "system.posix_acl_default";
constexpr std::string_view ofUser = "user.";

std::array<timespec, 2> TimesOf(const struct statx& item) {
  return {timespec{item.stx_atime.tv_sec, static_cast<long>(item.stx_atime.tv_nsec)},
          timespec{item.stx_mtime.tv_sec, static_cast<long>(item.stx_mtime.tv_nsec)}};
}

// The names, each ended by a NUL. False where there are some that are not told: too many, say.
bool ListAttributes(int item, std::string& names) {
  std::array<char, 1024> few;
  ssize_t length = flistxattr(item, few.data(), few.size());
  if (length >= 0) {
    names.assign(few.data(), static_cast<std::size_t>(length));
    return true;
  }
  if (errno == ERANGE) {
    names.resize(XATTR_LIST_MAX);
    length = flistxattr(item, names.data(), names.size());
  }
  names.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return length >= 0 || errno == ENOTSUP || errno == ENOSYS || errno == EPERM;
}

bool CopyAttribute(int from, int to, const char* name, std::string& value) {
  value.resize(XATTR_SIZE_MAX);
  const ssize_t length = fgetxattr(from, name, value.data(), value.size());
  if (length < 0) return errno == ENODATA;  // gone since
  return fsetxattr(to, name, value.data(), static_cast<std::size_t>(length), 0) == 0;
}

struct Extended {
  bool HasAny = false;           // the original, that is
  bool LosesAccessList = false;  // which told of more people than the permissions do
  bool LosesOwn = false;         // the user's; those of the system differ by volume
};

// A new item inherits access lists from its folder, which the original may not have.
Extended CopyExtended(int from, int to, bool mayInherit) {
  std::string given;
  std::string wanted;
  if (mayInherit) ListAttributes(to, given);
  const bool isKnown = ListAttributes(from, wanted);
  if (given.empty() && wanted.empty() && isKnown) return {};
  const auto names = [](const std::string& list, const auto& take) {
    for (const char* name = list.c_str(); name < list.data() + list.size();
         name += std::strlen(name) + 1) {
      take(name);
    }
  };
  names(given, [&](const char* name) {
    if (name == accessList || name == defaultAccessList) fremovexattr(to, name);
  });
  // The access list may be among what is not told.
  Extended result{.HasAny = !wanted.empty(), .LosesAccessList = !isKnown, .LosesOwn = !isKnown};
  std::string value;
  names(wanted, [&](const char* name) {
    if (CopyAttribute(from, to, name, value)) return;
    result.LosesAccessList |= name == accessList;
    result.LosesOwn |= std::string_view(name).starts_with(ofUser) || name == accessList ||
                       name == defaultAccessList;
  });
  return result;
}

mode_t WithoutGroup(mode_t mode) {
  return (mode & 07707U) | (mode & ((mode & 7U) << 3));
}

// The permissions that the copy is to have, once its owner has been set as far as the user may.
mode_t SetOwner(const struct statx& original, int to, const struct statx& copy) {
  mode_t mode = original.stx_mode & 07777U;
  if (original.stx_uid == copy.stx_uid && original.stx_gid == copy.stx_gid) return mode;
  if (fchown(to, original.stx_uid, original.stx_gid) == 0) return mode;
  if (original.stx_uid != copy.stx_uid) mode &= ~static_cast<mode_t>(S_ISUID);
  if (fchown(to, static_cast<uid_t>(-1), original.stx_gid) == 0) return mode;
  mode &= ~static_cast<mode_t>(S_ISGID);
  return WithoutGroup(mode);
}

}  // namespace

bool HandsDownAccessLists(int folder) {
  return fgetxattr(folder, defaultAccessList.data(), nullptr, 0) >= 0 ||
         (errno != ENODATA && errno != ENOTSUP);
}

ErrorNumber CopyAttributes(int from, const struct statx& original, int to, const struct statx& copy,
                           bool mayInherit, bool& losesSome) {
  mode_t mode = SetOwner(original, to, copy);
  const Extended extended = CopyExtended(from, to, mayInherit);
  losesSome = extended.LosesOwn;
  // Beside an access list, what the permissions give the group is the most that anybody in the list
  // gets.
  if (extended.LosesAccessList) mode = WithoutGroup(mode);
  // Changed only where it may differ: file systems without permissions refuse any change. A new
  // owner clears the special bits, and an access list brings permissions of its own.
  const bool differs = (copy.stx_mode & 07777U) != mode || (mode & 07000U) != 0 || extended.HasAny;
  if (differs && fchmod(to, mode) != 0 && errno != EPERM && errno != ENOTSUP && errno != ENOSYS) {
    return errno;
  }
  futimens(to, TimesOf(original).data());
  return NoError;
}

void CopyLinkAttributes(const struct statx& original, int folder, const char* name) {
  if (geteuid() == 0) {
    fchownat(folder, name, original.stx_uid, original.stx_gid, AT_SYMLINK_NOFOLLOW);
  }
  utimensat(folder, name, TimesOf(original).data(), AT_SYMLINK_NOFOLLOW);
}

}  // namespace tarnwell::platform
