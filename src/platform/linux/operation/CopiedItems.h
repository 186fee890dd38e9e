// What a move has copied, and may delete at the source.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>

#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/VolumeTraits.h"

namespace tarnwell::platform {

// Knows items by their way from the folder that the move began in, and as they were when they were
// copied.
class CopiedItems {
 public:
  enum class State { Unknown, Copied, Changed };
  // Two that fall together would have to be names of one file, or files of one size and time, to be
  // taken for each other.
  using Key = std::size_t;

  // The folder is to stay open, so that it keeps its number.
  static Key KeyOfFirst(const ItemIdentity& folder) { return HashItemIdentity()(folder); }
  static Key KeyBelow(Key folder, std::string_view name) {
    return folder * 31 + std::hash<std::string_view>()(name);
  }

  // The traits are those of the item's volume.
  void Add(Key key, const struct statx& item, const VolumeTraits& traits) {
    items_[key] = RecordOf(item, traits);
  }
  State Find(Key key, const struct statx& item) const {
    const auto found = items_.find(key);
    if (found == items_.end()) return State::Unknown;
    const Record& known = found->second;
    const VolumeTraits traits{.HasLastingNumbers = known.Self != ItemIdentity(),
                              .HasLastingBirth = known.HasBirth};
    return known == RecordOf(item, traits) ? State::Copied : State::Changed;
  }
  void Clear() { items_.clear(); }
  bool IsEmpty() const { return items_.empty(); }
  std::size_t Count() const { return items_.size(); }

 private:
  struct Record {
    ItemIdentity Self;  // none where it does not last
    unsigned Type = 0;
    std::uint64_t Size = 0;
    std::int64_t Seconds = 0;
    std::uint32_t Nanoseconds = 0;
    // When it was made: a copy has the time of its original, and may get the number of one that has
    // gone. 0 where the volume does not tell, or it does not last.
    bool HasBirth = false;
    std::int64_t BornSeconds = 0;
    std::uint32_t BornNanoseconds = 0;
    bool operator==(const Record&) const = default;
  };

  // Size and time of a folder tell of its items, which are looked at for themselves.
  static Record RecordOf(const struct statx& item, const VolumeTraits& traits) {
    Record record{traits.HasLastingNumbers ? IdentityOf(item) : ItemIdentity(),
                  item.stx_mode & static_cast<unsigned>(S_IFMT)};
    if (S_ISDIR(item.stx_mode)) return record;
    record.Size = item.stx_size;
    record.Seconds = item.stx_mtime.tv_sec;
    record.Nanoseconds = item.stx_mtime.tv_nsec;
    record.HasBirth = traits.HasLastingBirth && (item.stx_mask & STATX_BTIME) != 0;
    if (!record.HasBirth) return record;
    record.BornSeconds = item.stx_btime.tv_sec;
    record.BornNanoseconds = item.stx_btime.tv_nsec;
    return record;
  }

  std::unordered_map<Key, Record> items_;
};

}  // namespace tarnwell::platform
