// A path of any length in a form that the kernel takes.
#pragma once

#include <fcntl.h>

#include <string>
#include <string_view>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// The kernel refuses paths of PATH_MAX bytes and more, though folders may lie deeper. Such a path
// is walked in pieces, so that a call of the "at" family can take the rest.
class ReachedPath {
 public:
  // A path that is not absolute starts at the open folder `start`, which must outlive this object.
  explicit ReachedPath(std::string_view path, int start = AT_FDCWD);

  // What stood in the way; NoError if the path was reached.
  ErrorNumber Error() const { return error_; }
  // For an "at" call: the folder to start from, and what of the path is left.
  int Folder() const { return folder_ ? folder_.Get() : start_; }
  const char* Rest() const { return rest_.c_str(); }

 private:
  int start_;
  ErrorNumber error_;
  Descriptor folder_;
  std::string rest_;
};

// Opens what the path names. An invalid descriptor, and the reason in errno, on failure.
Descriptor OpenPath(std::string_view path, int flags, int start = AT_FDCWD);

// The path of an open folder that no link stands in; empty where the system does not tell.
std::string OwnPathOf(const Descriptor& folder);

}  // namespace tarnwell::platform
