// What has been told of one trash, and how it differs from what was read now.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/linux/trash/ReadTrash.h"

namespace tarnwell::platform {

// What is to be told.
struct TrashChanges {
  std::vector<TrashedItem> Items;  // with their numbers
  std::vector<std::uint64_t> Gone;
};

// Holds a few numbers for each item, and none of its texts.
class TrashTable {
 public:
  // Numbers are taken from `lastId`, which tables may share.
  explicit TrashTable(std::uint64_t& lastId) : lastId_(lastId) {}

  // What is taken between these two is all that there is; End tells what is there no more.
  void BeginAll() { ++turn_; }
  void EndAll(TrashChanges& changes);
  void Take(std::vector<TrashEntry> entries, TrashChanges& changes);
  // There is nothing any more.
  void Clear(TrashChanges& changes);

  // A folder whose size is not known.
  struct Unmeasured {
    std::string Key;
    std::int64_t NoteTime = 0;
  };
  // Those that came since the last call.
  std::vector<Unmeasured> TakeUnmeasured() { return std::exchange(unmeasured_, {}); }

 private:
  struct Known {
    std::uint64_t Id = 0;
    std::size_t Content = 0;  // hashes of all that is told, and of where it came from and when
    std::size_t Origin = 0;
    std::uint64_t Size = 0;
    std::int64_t NoteTime = 0;
    unsigned Turn = 0;
    bool IsFolder = false;
    bool IsSizeKnown = false;
  };

  std::uint64_t& lastId_;
  std::unordered_map<std::string, Known> items_;
  std::vector<Unmeasured> unmeasured_;
  unsigned turn_ = 0;
};

}  // namespace tarnwell::platform
