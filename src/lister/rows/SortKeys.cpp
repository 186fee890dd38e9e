#include "lister/rows/SortKeys.h"

#include <algorithm>

namespace tarnwell::lister {

bool SortKeys::Set(int level, SortKey key) {
  // No heading is worth a second level, so there are no more levels than headings.
  const int most = single_ ? 1 : HeadingCount;
  if (level < 0 || level > static_cast<int>(entries_.size()) || level >= most) return false;
  entries_.resize(static_cast<std::size_t>(level));
  entries_.push_back(key);
  return true;
}

void SortKeys::Add(SortKey key) {
  if (single_) return StartNew(key);
  const auto place = std::ranges::find(entries_, key.Heading, &SortKey::Heading);
  if (place != entries_.end()) {
    *place = key;
  } else {
    entries_.push_back(key);
  }
}

const SortKey* SortKeys::Find(HeadingId heading) const {
  const auto found = std::ranges::find(entries_, heading, &SortKey::Heading);
  return found == entries_.end() ? nullptr : &*found;
}

}  // namespace tarnwell::lister
