// Port: starting programs and opening documents and addresses.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

struct LaunchRequest {
  std::string File;        // a program, a document, or an address such as "https://..."
  std::string Parameters;  // for a program; split at blanks, never passed through a shell
  std::string Folder;      // working folder; empty for the program's own
};

class Launcher {
 public:
  virtual ~Launcher() = default;
  // Opens a document or address in its default application, or starts a program: in a terminal
  // unless it is known to have windows of its own. Does not wait for it to end.
  virtual base::Status Execute(const LaunchRequest& request) = 0;
};

}  // namespace tarnwell::platform
