// What a move has copied, and may delete at the source.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>

#include "platform/linux/ItemIdentity.h"

namespace tarnwell::platform {

// Knows items by their name in their folder, and as they were when they were copied.
class CopiedItems {
 public:
  enum class State { Unknown, Copied, Changed };

  void Add(const ItemIdentity& folder, std::string_view name, const struct statx& item) {
    items_[KeyOf(folder, name)] = RecordOf(item);
  }
  State Find(const ItemIdentity& folder, std::string_view name, const struct statx& item) const {
    const auto found = items_.find(KeyOf(folder, name));
    if (found == items_.end()) return State::Unknown;
    return found->second == RecordOf(item) ? State::Copied : State::Changed;
  }
  void Clear() { items_.clear(); }
  bool IsEmpty() const { return items_.empty(); }
  std::size_t Count() const { return items_.size(); }

 private:
  struct Record {
    ItemIdentity Self;
    std::uint64_t Size = 0;
    std::int64_t Seconds = 0;
    std::uint32_t Nanoseconds = 0;
    bool operator==(const Record&) const = default;
  };

  // Size and time of a folder tell of its items, which are looked at for themselves.
  static Record RecordOf(const struct statx& item) {
    if (S_ISDIR(item.stx_mode)) return {IdentityOf(item)};
    return {IdentityOf(item), item.stx_size, item.stx_mtime.tv_sec, item.stx_mtime.tv_nsec};
  }
  // Two that fall together would have to be names of one file to be taken for each other.
  static std::size_t KeyOf(const ItemIdentity& folder, std::string_view name) {
    return HashItemIdentity()(folder) * 31 + std::hash<std::string_view>()(name);
  }

  std::unordered_map<std::size_t, Record> items_;
};

}  // namespace tarnwell::platform
