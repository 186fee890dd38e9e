// What the main form remembers of the answers of the small dialogs of file operations. Each command
// takes its answer from its own dialog and leaves it here.
#pragma once

#include <string>

namespace tarnwell::fileops {

struct DialogFields {
  // The last answer: the word of a button, or a name that was typed; empty where there was none.
  std::string DialogResult;
  std::string DialogDestination;  // of a copy or move, as the user left it
  bool SendToRecycle = false;     // of a delete
};

}  // namespace tarnwell::fileops
