#include "platform/linux/posix/ReachedPath.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

namespace tarnwell::platform {

ReachedPath::ReachedPath(std::string_view path, int start) : start_(start) {
  // Cut at the NUL, the path would name another file than the one that was meant.
  if (path.find('\0') != std::string_view::npos) {
    error_ = EINVAL;
    return;
  }
  while (path.size() >= PATH_MAX) {
    const std::size_t cut = path.rfind('/', PATH_MAX - 1);
    if (cut == std::string_view::npos || cut == 0) {
      error_ = ENAMETOOLONG;
      return;
    }
    const std::string piece(path.substr(0, cut));
    Descriptor opened(openat(Folder(), piece.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!opened) {
      error_ = errno;
      return;
    }
    folder_ = std::move(opened);
    const std::size_t next = path.find_first_not_of('/', cut);
    path = next == std::string_view::npos ? std::string_view(".") : path.substr(next);
  }
  rest_ = path;
}

Descriptor OpenPath(std::string_view path, int flags, int start) {
  Descriptor opened;
  ErrorNumber error;
  {
    const ReachedPath reached(path, start);
    error = reached.Error();
    if (error == NoError) {
      opened = Descriptor(openat(reached.Folder(), reached.Rest(), flags | O_CLOEXEC));
      error = errno;
    }
  }
  if (!opened) errno = error.Value();  // closing the pieces of the way must not hide it
  return opened;
}

std::string OwnPathOf(const Descriptor& folder) {
  const std::string link = "/proc/self/fd/" + std::to_string(folder.Get());
  std::array<char, PATH_MAX> path;
  const ssize_t length = readlink(link.c_str(), path.data(), path.size());
  return length < 0 ? std::string() : std::string(path.data(), static_cast<std::size_t>(length));
}

}  // namespace tarnwell::platform
