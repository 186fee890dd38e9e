#include "platform/linux/LinuxLauncher.h"

#include <cerrno>

#include "platform/linux/SystemError.h"

namespace tarnwell::platform {

base::Status LinuxLauncher::Execute(const LaunchRequest&) {
  return SystemError(ENOSYS);
}

}  // namespace tarnwell::platform
