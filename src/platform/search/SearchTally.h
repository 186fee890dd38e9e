// What came of a search, from its threads to the event loop.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "platform/FileSearch.h"

namespace tarnwell::platform {

// What a thread has come to since it told last.
struct SearchShare {
  std::vector<FoundItem> Found;
  std::vector<SearchTrouble> Troubles;
  SearchCounts Counts;
};

// Lives as long as its last thread, which may be long after nobody waits for it any more.
class SearchTally {
 public:
  explicit SearchTally(std::size_t threads) : left_(threads) {}
  virtual ~SearchTally() = default;

  // --- Of the work that the threads share; see WorkShare.

  virtual void Cancel() = 0;
  virtual void GiveUp() = 0;
  virtual bool IsWanted() const = 0;

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
