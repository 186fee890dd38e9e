#include "platform/linux/SystemError.h"

#include <glib.h>

#include <cerrno>

namespace tarnwell::platform {

base::Status SystemError(int number) {
  if (number == 0) return {};
  return {number, g_strerror(number)};
}

base::Status NoRegularFile() {
  return {EINVAL, "Not a regular file"};
}

}  // namespace tarnwell::platform
