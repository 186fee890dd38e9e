// One value for each pane, and one for each list.
#pragma once

#include <array>
#include <concepts>
#include <cstddef>

#include "lister/list/ListId.h"

namespace tarnwell::workspace {

// By the numbers of the panes. Throws std::out_of_range for one that names none.
template <typename Value>
class PerPane {
 public:
  Value& operator[](std::integral auto pane) { return values_.at(static_cast<std::size_t>(pane)); }
  const Value& operator[](std::integral auto pane) const {
    return values_.at(static_cast<std::size_t>(pane));
  }

  std::size_t size() const { return values_.size(); }
  auto begin() { return values_.begin(); }
  auto end() { return values_.end(); }
  auto begin() const { return values_.begin(); }
  auto end() const { return values_.end(); }

 private:
  std::array<Value, lister::PaneCount> values_{};
};

// By the ids of the lists. Throws std::out_of_range for one that names none.
template <typename Value>
class PerList {
 public:
  Value& operator[](lister::ListId list) { return Row(*this, list)[lister::PaneOf(list)]; }
  const Value& operator[](lister::ListId list) const {
    return Row(*this, list)[lister::PaneOf(list)];
  }

 private:
  template <typename Self>
  static auto& Row(Self& self, lister::ListId list) {
    return lister::IsFileList(list) ? self.files_ : self.folders_;
  }
  PerPane<Value> folders_;
  PerPane<Value> files_;
};

}  // namespace tarnwell::workspace
