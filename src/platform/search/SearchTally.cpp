#include "platform/search/SearchTally.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarnwell::platform {
namespace {

void Add(SearchCounts& sum, const SearchCounts& counts) {
  sum.Folders += counts.Folders;
  sum.Items += counts.Items;
  sum.Found += counts.Found;
  sum.LookedInto += counts.LookedInto;
  sum.Bytes += counts.Bytes;
  sum.Binary += counts.Binary;
  sum.TooLarge += counts.TooLarge;
  sum.Troubles += counts.Troubles;
}

template <typename Items, typename Item>
void MoveTo(Items& to, std::vector<Item>& from) {
  to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
  from.clear();
}

}  // namespace

void SearchTally::Tell(SearchShare& share, const std::string& folder) {
  {
    const std::lock_guard lock(mutex_);
    Add(told_.Counts, share.Counts);
    MoveTo(found_, share.Found);
    const std::size_t room = MostSearchTroubles - keptTroubles_;
    if (share.Troubles.size() > room) share.Troubles.resize(room);
    keptTroubles_ += share.Troubles.size();
    MoveTo(told_.Troubles, share.Troubles);
    folder_ = folder;
  }
  share.Counts = {};
}

void SearchTally::Fail(const base::Status& status) {
  const std::lock_guard lock(mutex_);
  if (status_) status_ = status;
}

bool SearchTally::Leave() {
  const std::lock_guard lock(mutex_);
  if (--left_ == 0) end_ = std::chrono::steady_clock::now();
  return left_ == 0;
}

SearchUpdate SearchTally::TakeUpdate(std::size_t most) {
  SearchUpdate update;
  const std::lock_guard lock(mutex_);
  const auto begin = found_.begin();
  const auto end = begin + static_cast<std::ptrdiff_t>(std::min(most, found_.size()));
  update.Found.assign(std::make_move_iterator(begin), std::make_move_iterator(end));
  found_.erase(begin, end);
  update.Troubles = std::exchange(told_.Troubles, {});
  update.Counts = told_.Counts;
  update.Folder = folder_;
  update.Status = status_;
  update.IsDone = left_ == 0 && found_.empty();
  const auto now = left_ == 0 ? end_ : std::chrono::steady_clock::now();
  update.Elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - start_);
  return update;
}

bool SearchTally::HasMore() {
  const std::lock_guard lock(mutex_);
  return !found_.empty();
}

}  // namespace tarnwell::platform
