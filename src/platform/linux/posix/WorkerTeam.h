// Several threads at one list of items.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace tarnwell::platform {

// The caller's thread and some helpers, which wait for the next list between two. Serves one
// caller.
class WorkerTeam {
 public:
  using GoesOn = std::function<bool(std::size_t item)>;
  using Work = std::function<void(std::size_t member, std::size_t item)>;

  // Helpers that the system does not give are done without.
  explicit WorkerTeam(std::size_t helpers);
  WorkerTeam(const WorkerTeam&) = delete;
  WorkerTeam& operator=(const WorkerTeam&) = delete;
  ~WorkerTeam();

  // Calls `work` for the items from 0 to below `count`, each by whichever member is free; the
  // caller is member 0. Before each of its own the caller asks `goesOn`, during which nobody begins
  // another; after a false nobody does. Returns when all that were begun are done. What `work`
  // throws goes to the terminal.
  void Run(std::size_t count, const GoesOn& goesOn, const Work& work);
  // The caller among them.
  std::size_t Members() const { return helpers_.size() + 1; }

 private:
  void Help(std::size_t member);
  // Nobody begins another; waits for those at work.
  void End(std::unique_lock<std::mutex>& lock);

  std::mutex mutex_;
  std::condition_variable begun_;
  std::condition_variable ended_;
  const Work* work_ = nullptr;
  std::size_t next_ = 0;
  std::size_t count_ = 0;
  std::size_t busy_ = 0;  // helpers with an item
  bool isOver_ = false;
  std::vector<std::thread> helpers_;
};

}  // namespace tarnwell::platform
