// What the threads of a search share: what is still to be done, and what came of it.
#pragma once

#include <cstddef>

#include "platform/WorkShare.h"
#include "platform/search/SearchTally.h"

namespace tarnwell::platform {

template <typename Job>
class SearchJobs : public WorkShare<Job>, public SearchTally {
 public:
  explicit SearchJobs(std::size_t threads) : WorkShare<Job>(threads), SearchTally(threads) {}

  void Cancel() override { WorkShare<Job>::Cancel(); }
  void GiveUp() override { WorkShare<Job>::GiveUp(); }
  bool IsWanted() const override { return WorkShare<Job>::IsWanted(); }
};

}  // namespace tarnwell::platform
