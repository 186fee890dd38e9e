// Documents, addresses and programs by the desktop's registrations.
#pragma once

#include "platform/Launcher.h"

namespace tarnwell::platform {

// A file goes to the default application for its kind. It is a program where it has the right to be
// executed and no application is registered for it, or where there are parameters. A name without
// a folder is looked for as the shell does, and then in the request's folder. What is started has
// nothing of this program's but its environment and its terminal output.
class LinuxLauncher : public Launcher {
 public:
  base::Status Execute(const LaunchRequest& request) override;
};

}  // namespace tarnwell::platform
