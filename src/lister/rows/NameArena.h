// Names in few large blocks: nothing is allocated for a single one, and none moves while others
// come. Nothing is ever taken out; who drops many names copies the others into a new arena.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace tarnwell::lister {

class NameArena {
 public:
  static constexpr std::size_t LongestName = 0xFFFF;

  // False, with nothing stored, for a name that is too long and once 4 GiB are in use.
  bool Add(std::string_view name, std::uint32_t& start) {
    if (name.size() > LongestName) return false;
    if (blocks_.empty() || used_ + name.size() > BlockSize) {
      if (blocks_.size() == MostBlocks) return false;
      blocks_.push_back(std::make_unique_for_overwrite<char[]>(BlockSize));
      used_ = 0;
    }
    std::memcpy(blocks_.back().get() + used_, name.data(), name.size());
    start = static_cast<std::uint32_t>((blocks_.size() - 1) * BlockSize + used_);
    used_ += name.size();
    bytes_ += name.size();
    return true;
  }
  std::string_view Get(std::uint32_t start, std::size_t length) const {
    return {blocks_[start / BlockSize].get() + start % BlockSize, length};
  }
  // Of all names that were added.
  std::size_t Bytes() const { return bytes_; }

 private:
  static constexpr std::size_t BlockSize = std::size_t{1} << 20;
  static constexpr std::size_t MostBlocks = std::size_t{1} << 12;

  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t used_ = 0;  // of the last block
  std::size_t bytes_ = 0;
};

}  // namespace tarnwell::lister
