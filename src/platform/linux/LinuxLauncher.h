// Documents and programs by the desktop's registrations.
#pragma once

#include "platform/Launcher.h"

namespace tarnwell::platform {

class LinuxLauncher : public Launcher {
 public:
  base::Status Execute(const LaunchRequest& request) override;
};

}  // namespace tarnwell::platform
