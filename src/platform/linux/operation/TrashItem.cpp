#include "platform/linux/operation/TrashItem.h"

#include <gio/gunixmounts.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {
namespace {

struct Cause {
  GIOErrorEnum Code;
  int Number;
};

constexpr Cause causes[] = {
    {G_IO_ERROR_NOT_FOUND, ENOENT},
    {G_IO_ERROR_PERMISSION_DENIED, EACCES},
    {G_IO_ERROR_NO_SPACE, ENOSPC},
    {G_IO_ERROR_READ_ONLY, EROFS},
    {G_IO_ERROR_FILENAME_TOO_LONG, ENAMETOOLONG},
    {G_IO_ERROR_BUSY, EBUSY},
    {G_IO_ERROR_TOO_MANY_OPEN_FILES, EMFILE},
};

// GLib's own words repeat the path, which is told beside them.
base::Status ReasonOf(GioError& error) {
  for (const Cause& each : causes) {
    if (g_error_matches(*error.Place(), G_IO_ERROR, each.Code) != 0)
      return SystemError(each.Number);
  }
  return error.Status();
}

// GLib calls a trash that it cannot make one that there is none of. Tries to make a folder where
// the trash would be, and gives what is wrong with the whole volume.
ErrorNumber TroubleOfVolume(const std::string& path) {
  const std::unique_ptr<GUnixMountEntry, decltype(&g_unix_mount_free)> mount(
      g_unix_mount_for(path.substr(0, path.rfind('/') + 1).c_str(), nullptr), g_unix_mount_free);
  if (!mount || g_unix_mount_is_system_internal(mount.get()) != FALSE) return NoError;
  const Descriptor top = OpenPath(g_unix_mount_get_mount_path(mount.get()), O_RDONLY | O_DIRECTORY);
  TemporaryName probe;
  if (!top || probe.Renew() != NoError) return NoError;
  if (mkdirat(top.Get(), probe.Text(), 0700) == 0) {
    unlinkat(top.Get(), probe.Text(), AT_REMOVEDIR);
    return NoError;
  }
  return errno == ENOSPC || errno == EDQUOT || errno == EROFS ? errno : NoError;
}

}  // namespace

TrashOutcome TrashItem(const std::string& path, base::Status& status) {
  const GioObject<GFile> file(g_file_new_for_path(path.c_str()));
  GioError error;
  if (g_file_trash(file.get(), nullptr, error.Place()) != FALSE) return TrashOutcome::Trashed;
  status = ReasonOf(error);
  if (g_error_matches(*error.Place(), G_IO_ERROR, G_IO_ERROR_NOT_SUPPORTED) == 0) {
    return TrashOutcome::Failed;
  }
  const ErrorNumber trouble = TroubleOfVolume(path);
  if (trouble == NoError) return TrashOutcome::NoTrash;
  status = trouble == EROFS
               ? SystemError(trouble)
               : base::Status{trouble.Value(), "The drive is full, and its trash needs some room"};
  return TrashOutcome::Failed;
}

}  // namespace tarnwell::platform
