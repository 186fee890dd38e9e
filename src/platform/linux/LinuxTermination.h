// Ends the program cleanly when the system asks it to.
#pragma once

#include <functional>
#include <vector>

namespace tarnwell::platform {

// While it lives, SIGTERM, SIGINT and SIGHUP call `quit` from the event loop (GLib's default main
// context) instead of killing the process. From then on a file that may not grow any further is
// trouble of that file, told by the call that writes it, and not the end of the program.
class LinuxTermination {
 public:
  explicit LinuxTermination(std::function<void()> quit);
  ~LinuxTermination();
  LinuxTermination(const LinuxTermination&) = delete;
  LinuxTermination& operator=(const LinuxTermination&) = delete;

 private:
  std::function<void()> quit_;
  std::vector<unsigned> sources_;
};

}  // namespace tarnwell::platform
