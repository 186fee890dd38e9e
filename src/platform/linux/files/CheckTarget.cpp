#include "platform/linux/files/CheckTarget.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/PathSyntax.h"
#include "platform/linux/files/NamingError.h"
#include "platform/linux/posix/ItemText.h"
#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {
namespace {

// No link followed.
ErrorNumber LookAtItem(const std::string& path, struct stat& found) {
  const ReachedPath reached(path);
  if (reached.Error() != NoError) return reached.Error();
  const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
  return ErrorOf(fstatat(reached.Folder(), reached.Rest(), &found, flags));
}

base::Status NoFolder(ErrorNumber error, const std::string& path, bool isLink) {
  const char* const what = isLink ? " is a link that leads to no folder." : " is no folder.";
  return {error.Value(), QuotedName(path) + what + " Type the path of a folder."};
}

}  // namespace

base::Status CheckTarget(const std::string& path) {
  const base::PathSyntax& syntax = base::PathSyntax::Posix();
  std::string folder = path;
  // Up to the nearest one that is there.
  for (bool isMissing = false;; isMissing = true) {
    if (!syntax.IsDriveRoot(folder)) folder = syntax.RemoveRightSlash(folder);
    if (const Descriptor opened = OpenPath(folder, O_PATH | O_DIRECTORY); opened) {
      const bool takes = !isMissing || faccessat(opened.Get(), ".", W_OK | X_OK, AT_EACCESS) == 0;
      return NamingError(takes ? NoError : errno);
    }
    const ErrorNumber error = errno;
    struct stat found {};
    if (LookAtItem(folder, found) == NoError && !S_ISDIR(found.st_mode)) {
      return NoFolder(error, folder, S_ISLNK(found.st_mode));
    }
    const std::string above = syntax.ParentOf(folder);
    const bool goesUp = (error == ENOENT || error == ENOTDIR) && !above.empty() && above != folder;
    if (!goesUp) return NamingError(error);
    folder = above;
  }
}

}  // namespace tarnwell::platform
