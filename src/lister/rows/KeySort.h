// Sorts rows by keys of bytes, and lets others have a turn meanwhile.
//
// Keys that begin alike are common ("file 1", "file 2"), so what the keys of a group share is
// passed over, the next eight bytes of each are sorted as one number, and the groups that these
// leave undecided are sorted in the same way. Large groups are first dealt out by the bytes of the
// number, one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "lister/rows/ListerView.h"

namespace tarnwell::lister {

class KeySort {
 public:
  // Orders two rows whose keys are equal.
  using Before = std::function<bool(RowId, RowId)>;

  // Room for so many rows with keys of so many bytes in all; more may come.
  KeySort(std::size_t rows, std::size_t bytes);

  // The key of the row is what `append(key)` appends. No key may be the beginning of another one.
  template <typename AppendKey>
  void Add(RowId row, AppendKey append) {
    const std::size_t start = BeginKey(row);
    append(keys_);
    EndKey(start);
  }

  // The rows in order. Asks `goOn` now and then, if there is one, and gives nothing once it says
  // false. To be called once.
  std::vector<RowId> Sorted(const Before& before, const std::function<bool()>& goOn);

 private:
  struct Entry {
    std::uint64_t Bytes;  // eight of the key, as a number
    std::uint32_t Start;  // of the key, in units of `Unit`
    RowId Row;
  };
  struct Group {
    std::size_t First, Last;  // entries, the last one excluded
    std::size_t Depth;        // bytes of the keys that are equal
    std::size_t Dealt;        // bytes behind these that are, too, of the number; 0: it is not set
  };

  std::size_t BeginKey(RowId row);
  void EndKey(std::size_t start);
  const unsigned char* Key(const Entry& entry) const;
  std::size_t Length(const Entry& entry) const;
  std::size_t CommonLength(const Group& group) const;
  // These return false once `goOn` is false.
  bool GoesOn(std::size_t steps, const std::function<bool()>& goOn);
  bool Load(const Group& group, const std::function<bool()>& goOn);
  void Deal(const Group& group);
  void SortSmall(const Group& group);

  std::string keys_;
  std::vector<Entry> entries_;
  std::vector<Entry> dealt_;
  std::vector<Group> groups_;  // still to be sorted
  std::size_t steps_ = 0;
};

}  // namespace tarnwell::lister
