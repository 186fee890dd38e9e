// Lists of items as file operations take them: full paths, each ended by a NUL character.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "base/PathSyntax.h"

namespace tarnwell::fileops {

inline std::string_view FirstItem(std::string_view items) {
  return items.substr(0, items.find('\0'));
}

// Whether the folder is one of the items.
inline bool HoldsItem(std::string_view items, std::string_view folder,
                      const base::PathSyntax& syntax) {
  while (!items.empty()) {
    const std::string_view item = FirstItem(items);
    if (!item.empty() && syntax.Same(item, folder)) return true;
    items.remove_prefix(std::min(item.size() + 1, items.size()));
  }
  return false;
}

// A path of a folder list as the file system knows it: a place that is no folder on disk gives the
// network path in it, or nothing.
inline std::string OnDisk(const std::string& folder, const base::PathSyntax& syntax) {
  if (!folder.starts_with('*')) return folder;
  const std::size_t network = syntax.FindNetworkStart(folder);
  return network == std::string::npos ? "" : folder.substr(network);
}

}  // namespace tarnwell::fileops
