// Threads for calls that may never return.
#pragma once

#include <functional>
#include <memory>

namespace tarnwell::platform {

// A thread that is done takes the next call; one that hangs is left to it, and nothing waits for
// it, the end of this object and of the program included. So what a call uses has to be its own.
class FarWorkers {
 public:
  FarWorkers();
  // Throws std::system_error where there can be no more threads.
  void Post(std::function<void()> work);

 private:
  struct Queue;
  static void Serve(const std::shared_ptr<Queue>& queue);

  std::shared_ptr<Queue> queue_;
};

}  // namespace tarnwell::platform
