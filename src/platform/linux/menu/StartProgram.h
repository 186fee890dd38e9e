// Programs in processes of their own.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/linux/menu/TerminalCall.h"

namespace tarnwell::platform {

enum class StartIn {
  OwnWindows,  // the program is on its own
  Terminal,
  Fitting,  // in a terminal unless a desktop entry for it says that it has windows of its own
};

// Starts a program in the folder (empty for that of this process) and does not wait for it. The
// words are the program's path and its arguments, which reach it as they are: no shell sees them,
// and a file that the system cannot execute is not handed to one either.
base::Status StartProgram(const std::vector<std::string>& words, const std::string& folder,
                          StartIn where, TerminalEnd end = TerminalEnd::Closes);

// Where PATH leads to; empty for a program that is not there. A name with a slash stays as it is.
std::string FindProgram(const std::string& name);

// Adds the words of a line, by the quoting rules of a POSIX shell; an error for a quote that does
// not end, and for NUL. An empty line has none.
base::Status AddWords(const std::string& line, std::vector<std::string>& words);

}  // namespace tarnwell::platform
