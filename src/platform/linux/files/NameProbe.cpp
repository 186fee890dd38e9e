#include "platform/linux/files/NameProbe.h"

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {
namespace {

// Longer names may be too long where they are stored in another form.
constexpr std::size_t safeLength = 80;  // bytes

// How volumes refuse a name. Others, such as a full disk, say nothing about it.
constexpr int refusals[] = {EINVAL, EILSEQ, ENOENT, ENAMETOOLONG, EPERM, EACCES};

}  // namespace

bool IsUnusualName(const std::string& name) {
  const auto isOdd = [](char byte) {
    return static_cast<unsigned char>(byte) < 0x20 ||
           std::string_view("\"*:<>?\\|\x7F").find(byte) != std::string_view::npos;
  };
  return name.size() > safeLength || name.ends_with('.') || name.ends_with(' ') ||
         std::ranges::any_of(name, isOdd) ||
         g_utf8_validate(name.data(), static_cast<gssize>(name.size()), nullptr) == FALSE;
}

ErrorNumber TryName(int folder, const std::string& name) {
  TemporaryName temporary;
  if (temporary.Renew() != NoError || mkdirat(folder, temporary.Text(), 0700) != 0) return NoError;
  ErrorNumber error;
  constexpr int flags = O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  if (const Descriptor probe(openat(folder, temporary.Text(), flags)); probe) {
    constexpr int fresh = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const Descriptor made(openat(probe.Get(), name.c_str(), fresh, 0600));
    error = made ? NoError : errno;
    if (made) unlinkat(probe.Get(), name.c_str(), 0);
  }
  unlinkat(folder, temporary.Text(), AT_REMOVEDIR);
  return std::ranges::count(refusals, error.Value()) > 0 ? error : NoError;
}

}  // namespace tarnwell::platform
