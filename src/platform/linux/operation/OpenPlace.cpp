#include "platform/linux/operation/OpenPlace.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {

ErrorNumber OpenPlaceAt(const std::string& path, OpenPlace& place) {
  const std::string folder = path.empty() ? "/" : path;
  place.Folder = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  if (!place.Folder && errno == EACCES) place.Folder = OpenPath(folder, O_PATH | O_DIRECTORY);
  place.Path = path;
  return place.Folder ? NoError : errno;
}

// Makes the folder, and those above it that are missing.
ErrorNumber MakeFolders(const std::string& path) {
  for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
    const ReachedPath reached(path.substr(0, end));
    if (reached.Error() != NoError) return reached.Error();
    struct stat found {};
    if (fstatat(reached.Folder(), reached.Rest(), &found, 0) != 0 &&
        mkdirat(reached.Folder(), reached.Rest(), 0777) != 0 && errno != EEXIST) {
      return errno;
    }
    if (end == path.npos) return NoError;
  }
}

}  // namespace tarnwell::platform
