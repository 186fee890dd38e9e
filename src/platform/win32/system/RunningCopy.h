// Copies of the program that run at the same time, and find each other by a window.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/system/HiddenWindow.h"

namespace tarnwell::platform {

// Asks the copy that runs in the same session for the same user with the same program folder to
// open the folders, which are full paths. Its windows may come to the front then as this process
// could bring its own. False where there is none, or it does not answer within some seconds.
bool AskRunningCopy(const std::string& programFolder, const std::vector<std::string>& folders);

// While it lives, other copies with the program folder reach this one, unless one that is older is
// reached already; then this one follows when that ends. To be used by the thread with the loop of
// messages.
class RunningCopy {
 public:
  using Opens = std::function<void(const std::vector<std::string>& folders)>;

  // Called from the loop.
  RunningCopy(const std::string& programFolder, Opens opens);

 private:
  const std::shared_ptr<Opens> opens_;
  HiddenWindow window_;
};

}  // namespace tarnwell::platform
