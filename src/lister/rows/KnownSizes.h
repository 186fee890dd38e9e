// Sizes of folders that have been measured, by path. Measures nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/PathSyntax.h"

namespace tarnwell::lister {

// What a folder holds, as far as it could be read.
struct FolderSize {
  std::uint64_t Bytes = 0;
  bool IsWhole = true;
};

class KnownSizes {
 public:
  static constexpr std::size_t Most = 100'000;  // folders; past that a new one drives one out

  explicit KnownSizes(const base::PathSyntax& syntax) : syntax_(syntax) {}

  bool IsEmpty() const { return sizes_.empty(); }
  // `modified`: the folder's date of last change when it was measured, in nanoseconds.
  void Keep(std::string_view path, std::int64_t modified, const FolderSize& size) {
    if (sizes_.size() >= Most) sizes_.erase(sizes_.begin());
    sizes_[syntax_.Key(path)] = {modified, size};
  }
  std::optional<FolderSize> Find(std::string_view path) const {
    const auto found = sizes_.empty() ? sizes_.end() : sizes_.find(syntax_.Key(path));
    if (found == sizes_.end()) return std::nullopt;
    return found->second.Measured;
  }
  // The folder has been looked at and was last changed then: a size from before is forgotten.
  void Verify(std::string_view path, std::int64_t modified) {
    const auto found = sizes_.empty() ? sizes_.end() : sizes_.find(syntax_.Key(path));
    if (found != sizes_.end() && found->second.Modified != modified) sizes_.erase(found);
  }

 private:
  struct Size {
    std::int64_t Modified = 0;
    FolderSize Measured;
  };
  const base::PathSyntax& syntax_;
  std::unordered_map<std::string, Size> sizes_;  // by key
};

}  // namespace tarnwell::lister
