#include "platform/linux/files/FindItem.h"

#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {

base::Status FindItem(const std::string& path) {
  if (path.empty()) return SystemError(ENOENT);
  const ReachedPath reached(path);
  struct statx found;
  return SystemError(reached.Error() != NoError ? reached.Error()
                                                : LookAt(reached.Folder(), reached.Rest(), found));
}

}  // namespace tarnwell::platform
