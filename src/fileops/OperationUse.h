// What operations work in. Pure rules.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "base/PathSyntax.h"
#include "platform/FileOperation.h"

namespace tarnwell::fileops {

// The items, a base::ItemList, but for those that lie in another one of them and go where that
// goes.
std::string WithoutNested(std::string_view items, const base::PathSyntax& syntax);

// Items that somebody is about to take away, a base::ItemList that must outlive this.
class ItemsToTake {
 public:
  ItemsToTake(std::string_view items, const base::PathSyntax& syntax);

  // The one that is an item of the order, a place where one of these is to go, or a folder above;
  // empty for none.
  std::string_view UsedBy(const platform::OperationOrder& order) const;

 private:
  // The item of that path, or the next folder above that is one of these. `clear` is a folder that
  // is known to be none, nor any above it, and gets the one that holds the path.
  std::string_view Find(std::string_view path, std::string& clear) const;
  std::string_view UsedBy(const platform::OperationRequest& request) const;

  const base::PathSyntax& syntax_;
  std::unordered_map<std::string, std::string_view> items_;  // by key
};

}  // namespace tarnwell::fileops
