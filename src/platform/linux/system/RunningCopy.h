// Copies of the program that run at the same time, and find each other over the session bus, by the
// interface org.freedesktop.Application of the desktop entry specification.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarnwell::platform {

// Asks the copy that runs for the same user with the same program folder to open the folders, which
// are full paths. False where there is none, or it does not answer within some seconds.
bool AskRunningCopy(const std::string& programFolder, const std::vector<std::string>& folders);

// While it lives, other copies with the program folder reach this one, unless one is reached
// already; then this one follows when that ends.
class RunningCopy {
 public:
  // Called from the event loop (GLib's default main context). `token` is what the desktop gives the
  // asking program for being brought to the front; may be empty.
  using Opens =
      std::function<void(const std::vector<std::string>& folders, const std::string& token)>;

  RunningCopy(const std::string& programFolder, Opens opens);
  ~RunningCopy();
  RunningCopy(const RunningCopy&) = delete;
  RunningCopy& operator=(const RunningCopy&) = delete;

 private:
  struct Name;
  const std::unique_ptr<Name> name_;
};

}  // namespace tarnwell::platform
