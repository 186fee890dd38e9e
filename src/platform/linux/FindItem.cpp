#include "platform/linux/FindItem.h"

#include "platform/linux/ItemIdentity.h"
#include "platform/linux/ReachedPath.h"
#include "platform/linux/SystemError.h"

namespace tarnwell::platform {

base::Status FindItem(const std::string& path) {
  if (path.empty()) return SystemError(ENOENT);
  const ReachedPath reached(path);
  struct statx found;
  return SystemError(reached.Error() != 0 ? reached.Error()
                                          : LookAt(reached.Folder(), reached.Rest(), found));
}

}  // namespace tarnwell::platform
