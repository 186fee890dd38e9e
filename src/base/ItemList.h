// Lists of items: full paths in one text, each ended by a NUL character. File operations, drags,
// the clipboard and the file lists hand items over in this form.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::base {

// Reads such a text where it stands; the text must outlive the list. An empty path is the end of
// the list, which some write, and the last path need have no NUL.
class ItemList {
 public:
  class Iterator {
   public:
    using value_type = std::string_view;
    using difference_type = std::ptrdiff_t;

    Iterator() = default;
    explicit Iterator(std::string_view text) : rest_(text) { ++*this; }
    std::string_view operator*() const { return item_; }
    Iterator& operator++() {
      item_ = rest_.substr(0, rest_.find('\0'));
      rest_.remove_prefix(std::min(item_.size() + 1, rest_.size()));
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(std::default_sentinel_t) const { return item_.empty(); }

   private:
    std::string_view item_;
    std::string_view rest_;
  };

  explicit ItemList(std::string_view text) : text_(text) {}

  Iterator begin() const { return Iterator(text_); }
  std::default_sentinel_t end() const { return {}; }
  std::string_view First() const { return *begin(); }  // empty for an empty list

  // The text of a list of these paths.
  static std::string TextOf(const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string& path : paths) Add(text, path);
    return text;
  }
  static void Add(std::string& text, std::string_view path) { (text += path) += '\0'; }

 private:
  std::string_view text_;
};

}  // namespace tarnwell::base
