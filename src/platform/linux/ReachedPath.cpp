#include "platform/linux/ReachedPath.h"

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
  const ReachedPath reached(path, start);
  if (reached.Error() != 0) {
    errno = reached.Error();
    return {};
  }
  Descriptor opened(openat(reached.Folder(), reached.Rest(), flags | O_CLOEXEC));
  const int error = errno;  // closing the pieces of the way must not hide it
  if (!opened) errno = error;
  return opened;
}

}  // namespace tarnwell::platform
