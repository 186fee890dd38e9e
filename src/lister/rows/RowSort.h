// Puts rows in order. Their keys may be made while other rows are still to come.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "lister/rows/KeySort.h"
#include "lister/rows/RowKeys.h"

namespace tarnwell::lister {

class RowSort {
 public:
  // What is given outlives the sort. Room for so many rows with names of so many bytes in all; more
  // may come.
  RowSort(const FileRows& rows, const std::vector<SortKey>& keys, const NameOrder& names,
          std::size_t count = 0, std::size_t bytes = 0)
      : keys_(rows, keys, names), sort_(count, bytes + AKey * count) {}

  // The row stands where what is known of it now puts it.
  void Add(RowId row) {
    sort_.Add(row, [&](std::string& key) { keys_.Append(row, key); });
  }
  // As FileRows::Sorted. To be called once.
  std::vector<RowId> Sorted(const std::function<bool()>& goOn) {
    return sort_.Sorted(
        [this](RowId left, RowId right) { return keys_.BeforeByBytes(left, right); }, goOn);
  }

 private:
  static constexpr std::size_t AKey = 16;  // bytes beyond the name

  RowKeys keys_;
  KeySort sort_;
};

}  // namespace tarnwell::lister
