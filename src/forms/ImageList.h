// The pictures of commands, by key and by position.
#pragma once

#include <algorithm>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarnwell::forms {

class ImageList {
 public:
  explicit ImageList(std::span<const std::string_view> keys) : keys_(keys) {}

  // Position of the key, counted from 0. Throws std::out_of_range for an unknown one.
  int Index(std::string_view key) const {
    const auto found = std::ranges::find(keys_, key);
    if (found == keys_.end()) throw std::out_of_range("no image " + std::string(key));
    return static_cast<int>(found - keys_.begin());
  }
  // Empty for a position that no image has.
  std::string_view Key(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= keys_.size()) return {};
    return keys_[static_cast<std::size_t>(index)];
  }

 private:
  std::span<const std::string_view> keys_;
};

}  // namespace tarnwell::forms
