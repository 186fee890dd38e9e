// Numbers that name the lists of the program.
#pragma once

#include <cstdint>

namespace tarnwell::lister {

// 0 to 4: the folder lists of panes 0 to 4. 100 to 104: their file lists.
using ListId = std::int16_t;

inline constexpr int PaneCount = 5;
inline constexpr ListId FileListOffset = 100;
inline constexpr ListId NoList = -1;
inline constexpr ListId ForeignList = -2;  // where a drag began that came from another program

constexpr bool IsFileList(ListId list) {
  return list >= FileListOffset;
}
constexpr int PaneOf(ListId list) {
  return IsFileList(list) ? list - FileListOffset : list;
}
constexpr ListId FolderListOf(int pane) {
  return static_cast<ListId>(pane);
}
constexpr ListId FileListOf(int pane) {
  return static_cast<ListId>(pane + FileListOffset);
}

}  // namespace tarnwell::lister
