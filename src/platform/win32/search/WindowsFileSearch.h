// Searches by threads that walk the disk.
#pragma once

#include "platform/FileSearch.h"

namespace tarnwell::platform {

// Tells from the loop of messages. A thread that hangs in a place which does not answer is left
// behind with what it works on when the search is let go of.
class WindowsFileSearch : public FileSearch {
 public:
  std::unique_ptr<RunningSearch> Start(SearchRequest request, Told told) override;
};

}  // namespace tarnwell::platform
