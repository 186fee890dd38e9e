// Ends the program cleanly when the system asks it to, and only then.
#pragma once

#include <functional>
#include <vector>

namespace tarnwell::platform {

// From then on a file that may not grow any further, and an output that nobody reads any more, are
// trouble of the call that writes, and not the end of the program. Programs that it starts are not
// concerned.
void OutliveFailedWrites();

// While it lives, SIGTERM, SIGINT and SIGHUP call `quit` from the event loop (GLib's default main
// context) instead of killing the process.
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
