#include "platform/linux/posix/SystemError.h"

#include <glib.h>

#include <cerrno>

namespace tarnwell::platform {

// The system's own words for these two leave the user alone with them.
base::Status SystemError(ErrorNumber error) {
  const int number = error.Value();
  switch (number) {
    case 0:
      return {};
    case EMFILE:
      return {number,
              "The program has too many files open. Take fewer nested folders at once, or start it "
              "with a higher limit (ulimit -n)."};
    case ENFILE:
      return {number,
              "Too many files are open on this computer. End other programs, then try again."};
    default:
      return {number, g_strerror(number)};
  }
}

base::Status NoRegularFile() {
  return {EINVAL, "Not a regular file"};
}

}  // namespace tarnwell::platform
