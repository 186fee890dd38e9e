// A file that is being written and has no name of its own yet.
#pragma once

#include <sys/types.h>

#include "platform/linux/files/RenameItem.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {

// Without any name where the file system can do that, otherwise under a temporary one. Vanishes
// unless it is put in its place. The folder is an open one, which must outlive this object.
class PendingFile {
 public:
  explicit PendingFile(int folder) : folder_(folder) {}
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;
  ~PendingFile();

  // What is to take the place of another needs a name first, which costs less from the start.
  ErrorNumber Create(mode_t mode, bool isNamed);
  // Makes it under the name itself, for a folder that is not in its place yet.
  ErrorNumber CreateAs(const char* name, mode_t mode);
  // Gives it its name; EEXIST where the name is taken by what may not go. See TakePlaceOf; with
  // none given, nothing may.
  ErrorNumber Place(const char* name, const MayGo& mayGo);

  int Get() const { return file_.Get(); }

 private:
  ErrorNumber PlaceUnnamed(const char* name, const MayGo& mayGo);

  int folder_;
  Descriptor file_;
  TemporaryName temporary_;
  const char* name_ = nullptr;  // what it has to be removed under
  bool isPlaced_ = false;
};

}  // namespace tarnwell::platform
