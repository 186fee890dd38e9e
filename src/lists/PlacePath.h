// Paths of folder lists that stand for places that are no folders on disk.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/PathSyntax.h"

namespace tarnwell::lists {

inline bool IsPlace(std::string_view path) {
  return path.starts_with('*');
}

// A path as it is shown: that of a place without the two characters ahead of its name.
inline std::string ShownPath(const std::string& path) {
  constexpr std::size_t prefix = 2;
  return IsPlace(path) ? path.substr(prefix) : path;
}

// A path as the file system knows it: a place gives the network path in it, or nothing.
inline std::string OnDisk(const std::string& path, const base::PathSyntax& syntax) {
  if (!IsPlace(path)) return path;
  const std::size_t network = syntax.FindNetworkStart(path);
  return network == std::string::npos ? "" : path.substr(network);
}

}  // namespace tarnwell::lists
