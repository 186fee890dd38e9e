#include "lister/rows/KeySort.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>

namespace tarnwell::lister {
namespace {

// A key begins at a multiple of it, with its length in front, so that 32 bits reach 16 GiB.
constexpr std::size_t Unit = sizeof(std::uint32_t);
constexpr std::size_t NumberSize = sizeof(std::uint64_t);

// Up to this many entries a sort by comparing is the quicker one.
constexpr std::size_t MostCompared = 256;

// Steps of work between two questions: a few milliseconds.
constexpr std::size_t StepsATurn = 32'768;

std::uint64_t NumberAt(const unsigned char* bytes) {
  const auto byte = [bytes](int at) { return std::uint64_t{bytes[at]} << (56 - 8 * at); };
  return byte(0) | byte(1) | byte(2) | byte(3) | byte(4) | byte(5) | byte(6) | byte(7);
}

}  // namespace

KeySort::KeySort(std::size_t rows, std::size_t bytes) {
  keys_.reserve(bytes + rows * 2 * Unit + NumberSize);
  entries_.reserve(rows);
}

std::size_t KeySort::BeginKey(RowId row) {
  const std::size_t start = keys_.size();
  entries_.push_back({0, static_cast<std::uint32_t>(start / Unit), row});
  keys_.append(Unit, '\0');
  return start;
}

void KeySort::EndKey(std::size_t start) {
  const auto length = static_cast<std::uint32_t>(keys_.size() - start - Unit);
  std::memcpy(keys_.data() + start, &length, Unit);
  keys_.append((Unit - length % Unit) % Unit, '\0');
}

const unsigned char* KeySort::Key(const Entry& entry) const {
  return reinterpret_cast<const unsigned char*>(keys_.data()) + (entry.Start + 1) * Unit;
}

std::size_t KeySort::Length(const Entry& entry) const {
  std::uint32_t length;
  std::memcpy(&length, keys_.data() + std::size_t{entry.Start} * Unit, Unit);
  return length;
}

std::vector<RowId> KeySort::Sorted(const Before& before, const std::function<bool()>& goOn) {
  keys_.append(NumberSize, '\0');  // a number may be read across the end of the last key
  if (!entries_.empty()) groups_.push_back({0, entries_.size(), 0, 0});
  while (!groups_.empty()) {
    Group group = groups_.back();
    groups_.pop_back();
    if (group.Dealt == 0) {
      group.Depth = CommonLength(group);
      if (group.Depth >= Length(entries_[group.First])) {
        std::sort(
            entries_.begin() + group.First, entries_.begin() + group.Last,
            [&](const Entry& left, const Entry& right) { return before(left.Row, right.Row); });
        continue;
      }
      if (!Load(group, goOn)) return {};
    } else if (!GoesOn(group.Last - group.First, goOn)) {
      return {};
    }
    if (group.Last - group.First > MostCompared) {
      Deal(group);
    } else {
      SortSmall(group);
    }
  }
  std::vector<RowId> rows;
  rows.reserve(entries_.size());
  for (const Entry& entry : entries_) rows.push_back(entry.Row);
  return rows;
}

bool KeySort::GoesOn(std::size_t steps, const std::function<bool()>& goOn) {
  steps_ += steps;
  if (steps_ < StepsATurn) return true;
  steps_ = 0;
  return !goOn || goOn();
}

std::size_t KeySort::CommonLength(const Group& group) const {
  const Entry& first = entries_[group.First];
  const unsigned char* const key = Key(first);
  std::size_t common = Length(first);
  for (std::size_t at = group.First + 1; at < group.Last && common > group.Depth; ++at) {
    const unsigned char* const other = Key(entries_[at]);
    const std::size_t most = std::min(common, Length(entries_[at]));
    common = group.Depth;
    while (common < most && key[common] == other[common]) ++common;
  }
  return common;
}

bool KeySort::Load(const Group& group, const std::function<bool()>& goOn) {
  for (std::size_t at = group.First; at < group.Last; ++at) {
    Entry& entry = entries_[at];
    entry.Bytes = NumberAt(Key(entry) + group.Depth);
    const std::size_t left = Length(entry) - group.Depth;  // what follows is no part of the key
    if (left < NumberSize) entry.Bytes &= ~std::uint64_t{0} << 8 * (NumberSize - left);
    if (!GoesOn(1, goOn)) return false;
  }
  return true;
}

void KeySort::Deal(const Group& group) {
  const std::size_t shift = 8 * (NumberSize - 1 - group.Dealt);
  const auto bucket = [shift](const Entry& entry) {
    return static_cast<std::size_t>(entry.Bytes >> shift & 0xFF);
  };
  std::array<std::size_t, 256> ends{};  // of the buckets, once all is dealt out
  for (std::size_t at = group.First; at < group.Last; ++at) ++ends[bucket(entries_[at])];
  std::exclusive_scan(ends.begin(), ends.end(), ends.begin(), std::size_t{0});
  dealt_.resize(group.Last - group.First);
  for (std::size_t at = group.First; at < group.Last; ++at) {
    dealt_[ends[bucket(entries_[at])]++] = entries_[at];
  }
  std::copy(dealt_.begin(), dealt_.end(), entries_.begin() + group.First);

  std::size_t first = group.First;
  for (const std::size_t end : ends) {
    const std::size_t last = group.First + end;
    if (last - first > MostCompared) {
      const bool isSpent = group.Dealt + 1 == NumberSize;
      groups_.push_back(isSpent ? Group{first, last, group.Depth + NumberSize, 0}
                                : Group{first, last, group.Depth, group.Dealt + 1});
    } else if (last - first > 1) {
      SortSmall({first, last, group.Depth, 0});
    }
    first = last;
  }
}

void KeySort::SortSmall(const Group& group) {
  std::sort(entries_.begin() + group.First, entries_.begin() + group.Last,
            [](const Entry& left, const Entry& right) { return left.Bytes < right.Bytes; });
  for (std::size_t at = group.First; at < group.Last;) {
    const std::size_t first = at;
    while (at < group.Last && entries_[at].Bytes == entries_[first].Bytes) ++at;
    if (at - first > 1) groups_.push_back({first, at, group.Depth + NumberSize, 0});
  }
}

}  // namespace tarnwell::lister
