#include "platform/linux/operation/OwnFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "platform/linux/operation/PendingFile.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {
namespace {

bool IsPrivate(const struct statx& found) {
  return (found.stx_mode & 077U) == 0;
}

// Volumes of other systems give every item one owner and the same permissions. A file is opened as
// it is made, so that nobody can have exchanged it: it shows what the volume makes of both.
bool LooksLikeOwn(int above, const struct statx& found) {
  constexpr mode_t unusual = 0604;
  PendingFile sample(above);
  struct statx file;
  if (sample.Create(0600, false) != NoError) return false;
  fchmod(sample.Get(), unusual);
  if (LookAt(sample.Get(), "", file) != NoError || found.stx_uid != file.stx_uid) return false;
  return IsPrivate(found) || (file.stx_mode & 0777U) != unusual;
}

bool IsOwn(int above, int folder) {
  struct statx found;
  if (LookAt(folder, "", found) != NoError) return false;
  if (found.stx_uid != geteuid()) return LooksLikeOwn(above, found);
  if (IsPrivate(found)) return true;
  // Some servers hand permissions down that nobody asked for.
  fchmod(folder, 0700);
  return LookAt(folder, "", found) == NoError && (IsPrivate(found) || LooksLikeOwn(above, found));
}

}  // namespace

ErrorNumber MakeOwnFolder(int above, const char* name, Descriptor& opened) {
  if (mkdirat(above, name, 0700) != 0) return errno;
  Descriptor made(openat(above, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!made) {
    const ErrorNumber error = errno;
    unlinkat(above, name, AT_REMOVEDIR);
    return error;
  }
  if (!IsOwn(above, made.Get())) return ESTALE;
  opened = std::move(made);
  return NoError;
}

}  // namespace tarnwell::platform
