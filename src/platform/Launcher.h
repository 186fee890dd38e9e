// Port: starting programs and opening documents and addresses.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"

namespace tarnwell::platform {

struct LaunchRequest {
  std::string File;            // a program, a document, or an address such as "https://..."
  std::string Parameters;      // for a program: its words, as people of the system quote them
  std::string Folder;          // working folder; empty for that of this process
  bool KeepsTerminal = false;  // one that the program starts in stays open behind it
};

struct LaunchFailure {
  std::string Path;
  base::Status Status;
};

class Launcher {
 public:
  virtual ~Launcher() = default;
  // Opens a document or address in its default application and a folder in the pane in use, or
  // starts a program: in a terminal unless it is known to have windows of its own. Does not wait
  // for it to end, and asks nothing: for what the user has typed. A name without a folder is that
  // of a program where the system has programs; or else of an item in the working folder, which is
  // no program where programs of other places are not trusted. Nothing starts in a working folder
  // that is not there, or with words that are no words.
  virtual base::Status Execute(const LaunchRequest& request) = 0;
  // The user's shell in a terminal; `folder` as above.
  virtual base::Status OpenTerminal(const std::string& folder) = 0;
  // Opens files that the user picked in a list, by their full paths; `folder` is for what starts.
  // Asks before a program starts where people expect that, and about many files at once; the user
  // may take it all back. Messages are let through meanwhile. Gives those that failed.
  virtual std::vector<LaunchFailure> OpenFiles(const std::vector<std::string>& paths,
                                               const std::string& folder) = 0;
};

}  // namespace tarnwell::platform
