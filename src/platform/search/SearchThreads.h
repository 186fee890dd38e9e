// The threads of a search, and how the event loop hears of them.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "platform/FileSearch.h"
#include "platform/search/SearchTally.h"

namespace tarnwell::platform {

// The event loop, as the system has it.
struct SearchLoop {
  // Callable from any thread.
  std::function<void(std::function<void()>)> Post;
  // Calls it over and over, until what is given is let go of, which may happen within the call.
  std::function<std::shared_ptr<void>(std::chrono::milliseconds, std::function<void()>)> Every;
};

// Runs each of the parts on a thread of its own, which may be left behind: what they use has to be
// their own. `noThreads` is the reason where not one of them can be begun. See FileSearch::Start.
std::unique_ptr<RunningSearch> StartSearch(const std::shared_ptr<SearchTally>& tally,
                                           const std::vector<std::function<void()>>& parts,
                                           FileSearch::Told told, const SearchLoop& loop,
                                           const base::Status& noThreads);

}  // namespace tarnwell::platform
