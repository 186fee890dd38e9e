// The words behind the program's name: options anywhere, but none behind --.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Version.h"

namespace tarnwell::app {

struct CommandArguments {
  // Full paths of folders that can be listed, for the panes from the first on.
  std::vector<std::string> Folders;
  // The program is not to start: the arguments are wrong (2), or have been answered (0).
  std::optional<int> ExitCode;
  std::string Error;  // a sentence for people, where they are wrong
};

// Writes what there is to say: help and version to the output, what is wrong to the error output.
// A folder that does not answer within some seconds is taken.
CommandArguments ReadArguments(const std::vector<std::string>& words, const base::Version& version);

}  // namespace tarnwell::app
