// The folders that a pane has shown in this run, for the way back.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarnwell::workspace {

// More are forgotten, the oldest first.
inline constexpr std::size_t MostInHistory = 30;

struct PaneHistory {
  // Oldest first, with no separator at the end unless it is a root. None stands twice in a row.
  std::vector<std::string> Folders;
  std::size_t Here = 0;  // the one on show; 0 where there are none
};

// The pane shows the folder. Unless that is the one at Here, it comes behind that one, in place of
// all that stood there.
void Visit(PaneHistory& history, const std::string& folder);

// Takes out a folder that is not there any more. `place` is one within Folders, but not Here.
void Forget(PaneHistory& history, std::size_t place);

}  // namespace tarnwell::workspace
