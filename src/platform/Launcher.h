// Port: starting programs and opening documents and addresses.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"

namespace tarnwell::platform {

struct LaunchRequest {
  std::string File;        // a program, a document, or an address such as "https://..."
  std::string Parameters;  // for a program; split at blanks, never passed through a shell
  std::string Folder;      // working folder; empty for the program's own
};

struct LaunchFailure {
  std::string Path;
  base::Status Status;
};

class Launcher {
 public:
  virtual ~Launcher() = default;
  // Opens a document or address in its default application, or starts a program: in a terminal
  // unless it is known to have windows of its own. Does not wait for it to end, and asks nothing:
  // for what the user has typed. A program's name without a folder is looked for where the system
  // has programs, and nowhere else.
  virtual base::Status Execute(const LaunchRequest& request) = 0;
  // Opens files that the user picked in a list, by their full paths; `folder` is for what starts.
  // Asks before a program starts, and about many files at once; the user may take it all back.
  // Messages are let through meanwhile. Gives those that failed.
  virtual std::vector<LaunchFailure> OpenFiles(const std::vector<std::string>& paths,
                                               const std::string& folder) = 0;
};

}  // namespace tarnwell::platform
