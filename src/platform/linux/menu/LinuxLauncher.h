// Documents, addresses and programs by the desktop's registrations.
#pragma once

#include "platform/Launcher.h"
#include "platform/linux/menu/OpenItems.h"

namespace tarnwell::platform {

// A file goes to the default application for its kind. It is a program where it may be executed and
// its content is a program's, or where there are parameters: words by the quoting rules of a POSIX
// shell, without one, in which every quote ends. A name without a folder is never that of a program
// in the working folder. Before a program starts that was picked in a list, the user is asked. What
// is started has nothing of this program's but its environment, with PWD for its folder, and its
// terminal output.
class LinuxLauncher : public Launcher {
 public:
  explicit LinuxLauncher(const OpenTools& tools) : tools_(tools) {}

  base::Status Execute(const LaunchRequest& request) override;
  base::Status OpenTerminal(const std::string& folder) override;
  std::vector<LaunchFailure> OpenFiles(const std::vector<std::string>& paths,
                                       const std::string& folder) override {
    return OpenItems(paths, folder, tools_);
  }

 private:
  base::Status OpenItem(const std::string& path, const LaunchRequest& request,
                        const std::vector<std::string>& arguments) const;

  const OpenTools tools_;
};

}  // namespace tarnwell::platform
