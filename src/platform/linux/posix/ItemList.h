// Lists of full paths in one text, each ended by a NUL character.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::platform {

inline std::string JoinItems(const std::vector<std::string>& paths) {
  std::string items;
  for (const std::string& path : paths) (items += path) += '\0';
  return items;
}

inline std::vector<std::string> SplitItemList(std::string_view items) {
  std::vector<std::string> paths;
  while (!items.empty()) {
    const std::size_t end = items.find('\0');
    if (end != 0) paths.emplace_back(items.substr(0, end));
    items.remove_prefix(end == items.npos ? items.size() : end + 1);
  }
  return paths;
}

}  // namespace tarnwell::platform
