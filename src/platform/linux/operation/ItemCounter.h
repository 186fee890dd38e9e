// Counting ahead what an operation has before it.
#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "platform/OperationUser.h"

namespace tarnwell::platform {

// Counts on a thread of its own, so that the work begins at once; what it has read lies ready for
// the work then. Stops when it is destroyed.
class ItemCounter {
 public:
  // Begins to count the items with these full paths and all that lies below them.
  void Start(std::vector<std::string> paths);
  // What was counted so far, and whether there is more to come, on top of the items given.
  void AddTo(OperationProgress& progress) const;

 private:
  void Count(const std::stop_token& stop, const std::vector<std::string>& paths);

  std::atomic<std::uint64_t> bytes_ = 0;
  std::atomic<std::uint64_t> items_ = 0;
  std::atomic<bool> isDone_ = false;
  std::jthread thread_;  // last, so that it ends first
};

}  // namespace tarnwell::platform
