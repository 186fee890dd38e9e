// Many names in one piece of memory.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace tarnwell::platform {

// Names of items in the order in which they came, each ended by a NUL; the last can be taken off.
class NameList {
 public:
  class Iterator {
   public:
    explicit Iterator(const char* name) : name_(name) {}
    const char* operator*() const { return name_; }
    Iterator& operator++() {
      name_ += std::strlen(name_) + 1;
      return *this;
    }
    bool operator==(const Iterator&) const = default;

   private:
    const char* name_;
  };

  void Add(const char* name) { text_.append(name, std::strlen(name) + 1); }
  // The same with a letter in front.
  void Add(char letter, const char* name) {
    text_ += letter;
    Add(name);
  }
  // Takes the last name off; there is one.
  std::string TakeLast() {
    const std::size_t start = text_.rfind('\0', text_.size() - 2) + 1;  // 0 for the first
    std::string name = text_.data() + start;
    text_.resize(start);
    return name;
  }

  // In bytes: a place to go back to by Cut, which drops the names that came since.
  std::size_t Size() const { return text_.size(); }
  void Cut(std::size_t size) { text_.resize(size); }
  void Clear() { text_.clear(); }
  bool IsEmpty() const { return text_.empty(); }

  // Good until a name is added.
  Iterator begin() const { return Iterator(text_.data()); }
  Iterator end() const { return Iterator(text_.data() + text_.size()); }

 private:
  std::string text_;
};

}  // namespace tarnwell::platform
