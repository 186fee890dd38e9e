// The items that the clipboard holds to be moved: lists show them dimmed.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

#include "base/ItemList.h"

namespace tarnwell::lister {

class CutItems {
 public:
  // Full paths, a base::ItemList, in place of those before.
  void Take(std::string_view items) {
    paths_.clear();
    for (const std::string_view path : base::ItemList(items)) paths_.emplace(path);
  }

  bool IsEmpty() const { return paths_.empty(); }
  bool Has(const std::string& path) const { return paths_.contains(path); }

 private:
  std::unordered_set<std::string> paths_;
};

}  // namespace tarnwell::lister
