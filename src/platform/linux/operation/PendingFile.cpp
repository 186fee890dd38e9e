#include "platform/linux/operation/PendingFile.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace tarnwell::platform {

PendingFile::~PendingFile() {
  if (name_ != nullptr && !isPlaced_) unlinkat(folder_, name_, 0);
}

ErrorNumber PendingFile::Create(mode_t mode, bool isNamed) {
  if (!isNamed) file_ = Descriptor(openat(folder_, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
  if (file_) return NoError;
  const bool isUnknown =
      errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL || errno == ENOENT;
  if (!isNamed && !isUnknown) return errno;
  for (int attempt = 0; attempt < TemporaryName::Attempts; ++attempt) {
    if (const ErrorNumber error = temporary_.Renew(); error != NoError) return error;
    const ErrorNumber error = CreateAs(temporary_.Text(), mode);
    if (error != EEXIST) return error;
  }
  return EEXIST;
}

ErrorNumber PendingFile::CreateAs(const char* name, mode_t mode) {
  constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  file_ = Descriptor(openat(folder_, name, flags, mode));
  if (!file_) return errno;
  name_ = name;
  return NoError;
}

ErrorNumber PendingFile::Place(const char* name, const MayGo& mayGo) {
  if (name_ != nullptr && std::strcmp(name, name_) == 0) {
    isPlaced_ = true;
    return NoError;
  }
  if (name_ == nullptr) return PlaceUnnamed(name, mayGo);
  // As the system does by itself where a rename takes the other's place, so that what goes is not
  // gone from the disk long before the new content is there.
  if (mayGo) sync_file_range(file_.Get(), 0, 0, SYNC_FILE_RANGE_WRITE);
  const ErrorNumber error = mayGo ? TakePlaceOf(folder_, name_, folder_, name, mayGo)
                                  : RenameNew(folder_, name_, folder_, name);
  isPlaced_ = error == NoError;
  return error;
}

ErrorNumber PendingFile::PlaceUnnamed(const char* name, const MayGo& mayGo) {
  std::array<char, 40> held;
  std::snprintf(held.data(), held.size(), "/proc/self/fd/%d", file_.Get());
  if (!mayGo) {
    return ErrorOf(linkat(AT_FDCWD, held.data(), folder_, name, AT_SYMLINK_FOLLOW));
  }
  // A link takes no other's place, but a rename does.
  for (int attempt = 0; attempt < TemporaryName::Attempts; ++attempt) {
    if (const ErrorNumber error = temporary_.Renew(); error != NoError) return error;
    if (linkat(AT_FDCWD, held.data(), folder_, temporary_.Text(), AT_SYMLINK_FOLLOW) == 0) {
      name_ = temporary_.Text();
      return Place(name, mayGo);
    }
    if (errno != EEXIST) return errno;
  }
  return EEXIST;
}

}  // namespace tarnwell::platform
