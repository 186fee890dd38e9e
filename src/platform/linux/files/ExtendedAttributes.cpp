#include "platform/linux/files/ExtendedAttributes.h"

#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>

#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

const char* AttributeName(ExtendedAttribute attribute) {
  return attribute == ExtendedAttribute::Colour ? "user.tarnwell.color" : "user.xdg.comment";
}

bool LeadsNowhere(const char* path) {
  struct stat found {};
  return lstat(path, &found) == 0 && S_ISLNK(found.st_mode);
}

// The system's own words fit calls of all kinds; these say what they mean here.
base::Status AttributeError(int number, mode_t mode) {
  switch (number) {
    case ENOTSUP:
      return {number, "This file system keeps no colours and comments"};
    case EPERM:
      if (S_ISREG(mode) || S_ISDIR(mode)) break;
      return {number, "Only files and folders can have colours and comments"};
    case E2BIG:
    case ERANGE:
      return {number, "The text is too long"};
    case ENOSPC:
      return {number, "The file system has no room left for it"};
    default:
      break;
  }
  return SystemError(number);
}

}  // namespace

base::Status ReadExtendedAttribute(const char* path, ExtendedAttribute attribute,
                                   std::string& text) {
  text.clear();
  const char* const name = AttributeName(attribute);
  std::array<char, 256> few;
  ssize_t length = getxattr(path, name, few.data(), few.size());
  if (length >= 0) {
    text.assign(few.data(), static_cast<std::size_t>(length));
    return {};
  }
  if (errno == ERANGE) {
    text.resize(XATTR_SIZE_MAX);  // the longest that the system has
    length = getxattr(path, name, text.data(), text.size());
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    if (length >= 0) return {};
  }
  const ErrorNumber error = errno;
  if (error == ENODATA || error == ENOTSUP) return {};
  if ((error == ENOENT || error == ELOOP) && LeadsNowhere(path)) return {};
  return SystemError(error);
}

base::Status WriteExtendedAttribute(const std::string& path, ExtendedAttribute attribute,
                                    const std::string& text) {
  // Held without being opened, since opening a FIFO or a device does something to it.
  const Descriptor item = OpenPath(path, O_PATH);
  struct stat found {};
  if (!item || fstat(item.Get(), &found) != 0) {
    const ErrorNumber error = errno;
    // Nothing of that path, and yet an item: a link to nothing, or in a circle.
    const bool isLink = (error == ENOENT || error == ELOOP) && OpenPath(path, O_PATH | O_NOFOLLOW);
    return isLink ? base::Status{error.Value(), "The link leads nowhere"} : SystemError(error);
  }
  const std::string held = "/proc/self/fd/" + std::to_string(item.Get());
  const char* const name = AttributeName(attribute);
  const int result = text.empty() ? removexattr(held.c_str(), name)
                                  : setxattr(held.c_str(), name, text.data(), text.size(), 0);
  if (result == 0 || (text.empty() && errno == ENODATA)) return {};
  return AttributeError(errno, found.st_mode);
}

}  // namespace tarnwell::platform
