// The headings that a list is sorted by, the first one first. Holds the list of keys; compares
// nothing.
#pragma once

#include <vector>

#include "lister/rows/Headings.h"

namespace tarnwell::lister {

struct SortKey {
  HeadingId Heading = HeadingId::Name;
  bool Descending = false;
};

class SortKeys {
 public:
  // A list that sorts by one heading only is `single`: what would add a key starts a new sort.
  explicit SortKeys(bool single) : single_(single) {}

  const std::vector<SortKey>& Entries() const { return entries_; }

  // Puts the key at the level and drops those behind it. False, with nothing changed, for a level
  // that does not follow the ones in use.
  bool Set(int level, SortKey key);
  void StartNew(SortKey key) { entries_ = {key}; }
  // Behind the others; a heading that is among them stays in its place with the new direction.
  void Add(SortKey key);
  // The key of that heading; null if the list is not sorted by it.
  const SortKey* Find(HeadingId heading) const;

 private:
  bool single_;
  std::vector<SortKey> entries_ = {SortKey{}};
};

}  // namespace tarnwell::lister
