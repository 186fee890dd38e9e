// What the threads of a search share: what is still to be done, and what came of it.
#pragma once

#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "platform/FileSearch.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/NameList.h"

namespace tarnwell::platform {

// A folder with all below it, or some files of it to be looked into.
struct SearchJob {
  Descriptor Folder;      // none for the one that the search begins with
  std::string Path;       // full
  std::size_t Level = 0;  // 0 for the first
  NameList Files = {};    // empty: all of the folder
};

// What a thread has come to since it told last.
struct SearchShare {
  std::vector<FoundItem> Found;
  std::vector<SearchTrouble> Troubles;
  SearchCounts Counts;
};

// Lives as long as its last thread, which may be long after nobody waits for it any more.
class SearchWork {
 public:
  explicit SearchWork(std::size_t threads) : threads_(threads), busy_(threads), left_(threads) {}

  // Of the folder that the search begins with; set before the second job is given.
  struct statx Top {};

  // --- For the threads.

  // The next one, as soon as there is one; false where none will come.
  bool Take(SearchJob& job);
  void Give(SearchJob job);
  // Whether jobs are so few that a thread may soon have nothing to do, or has nothing already.
  bool WantsJobs() const { return waiting_.load(std::memory_order_relaxed) < 2 * threads_; }
  bool HasIdle() const { return busy_.load(std::memory_order_relaxed) < threads_; }
  bool IsWanted() const { return isWanted_.load(std::memory_order_relaxed); }
  // Takes the share over and empties it. `folder` is the one at hand.
  void Tell(SearchShare& share, const std::string& folder);
  // Why the search is not whole.
  void Fail(const base::Status& status);
  // A thread ends with its job not done, or could not even begin.
  void GiveUp();
  // It has ended; true for the last one.
  bool Leave();

  // --- For the event loop.

  void Cancel();
  // Says that it is done when all has been handed over.
  SearchUpdate TakeUpdate(std::size_t most);
  bool HasMore();

 private:
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::mutex mutex_;
  std::condition_variable came_;
  std::deque<SearchJob> jobs_;
  std::atomic<std::size_t> waiting_ = 0;  // the number of jobs, for a look without the lock
  const std::size_t threads_;
  std::atomic<std::size_t> busy_;  // threads; those to come are, too
  std::size_t left_;               // threads that have not ended
  std::atomic<bool> isWanted_ = true;
  SearchShare told_;
  std::size_t toldFrom_ = 0;      // of what was found, what has not been handed over
  std::size_t keptTroubles_ = 0;  // in all
  std::string folder_;
  base::Status status_;
  std::chrono::steady_clock::time_point end_;
};

}  // namespace tarnwell::platform
