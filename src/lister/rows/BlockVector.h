// A vector in blocks of equal size: growing copies nothing and leaves no more than a block unused.
#pragma once

#include <cstddef>
#include <vector>

namespace tarnwell::lister {

template <typename T>
class BlockVector {
 public:
  std::size_t size() const {
    return blocks_.empty() ? 0 : (blocks_.size() - 1) * BlockSize + blocks_.back().size();
  }
  T& operator[](std::size_t at) { return blocks_[at / BlockSize][at % BlockSize]; }
  const T& operator[](std::size_t at) const { return blocks_[at / BlockSize][at % BlockSize]; }

  void push_back(const T& value) {
    if (blocks_.empty() || blocks_.back().size() == BlockSize) {
      const bool first = blocks_.empty();
      blocks_.emplace_back();
      if (!first) blocks_.back().reserve(BlockSize);  // a short vector stays small
    }
    blocks_.back().push_back(value);
  }

 private:
  static constexpr std::size_t BlockSize = 4096;

  std::vector<std::vector<T>> blocks_;
};

}  // namespace tarnwell::lister
