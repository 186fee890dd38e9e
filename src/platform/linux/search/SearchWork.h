// What the threads of a search share: what is still to be done, and what came of it.
#pragma once

#include <sys/stat.h>

#include <chrono>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "platform/FileSearch.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/NameList.h"
#include "platform/linux/posix/WorkShare.h"

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
class SearchWork : public WorkShare<SearchJob> {
 public:
  explicit SearchWork(std::size_t threads) : WorkShare(threads), left_(threads) {}

  // Of the folder that the search begins with; set before the second job is given.
  struct statx Top {};

  // --- For the threads.

  // Takes the share over and empties it. `folder` is the one at hand.
  void Tell(SearchShare& share, const std::string& folder);
  // Why the search is not whole.
  void Fail(const base::Status& status);
  // A thread has ended; true for the last one.
  bool Leave();

  // --- For the event loop.

  // Says that it is done when all has been handed over.
  SearchUpdate TakeUpdate(std::size_t most);
  bool HasMore();

 private:
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::mutex mutex_;
  std::size_t left_;              // threads that have not ended
  SearchShare told_;              // but for what was found
  std::deque<FoundItem> found_;   // and not handed over; grows without moving what it holds
  std::size_t keptTroubles_ = 0;  // in all
  std::string folder_;
  base::Status status_;
  std::chrono::steady_clock::time_point end_;
};

}  // namespace tarnwell::platform
