#include "platform/linux/operation/HoldFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>

#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/OwnFolder.h"
#include "platform/linux/posix/TwinName.h"

namespace tarnwell::platform {

HoldFolder::HoldFolder(int folder) : folder_(fcntl(folder, F_DUPFD_CLOEXEC, 0)) {
  if (!folder_ || name_.RenewHold() != NoError) return;
  static_cast<void>(MakeOwnFolder(folder, name_.Text(), held_));  // or there is none: see Get
}

HoldFolder::~HoldFolder() {
  if (held_) unlinkat(folder_.Get(), name_.Text(), AT_REMOVEDIR);
}

ErrorNumber HoldFolder::Take(const char* name) const {
  return RenameNew(folder_.Get(), name, held_.Get(), name);
}

ErrorNumber PutBack(int from, const char* name, int to) {
  const TwinParts parts = SplitTwinName(name, false);
  ErrorNumber error = RenameNew(from, name, to, name);
  for (unsigned number = parts.Number + 1; error == EEXIST; ++number) {
    error = RenameNew(from, name, to, MakeTwinName(parts, number).c_str());
  }
  return error;
}

}  // namespace tarnwell::platform
