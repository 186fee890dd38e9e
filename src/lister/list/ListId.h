// Numbers that name the lists of the program.
#pragma once

#include <cstdint>

namespace tarnwell::lister {

// 0 to 4: the folder lists of panes 0 to 4. 100 to 104: their file lists. 200: a file list of no
// pane, in the window that finds files.
using ListId = std::int16_t;

inline constexpr int PaneCount = 5;
inline constexpr ListId FileListOffset = 100;
inline constexpr ListId FoundList = 200;
inline constexpr ListId NoList = -1;
inline constexpr ListId ForeignList = -2;  // where a drag began that came from another program

constexpr bool IsFileList(ListId list) {
  return list >= FileListOffset;
}
constexpr bool HasPane(ListId list) {
  return list >= 0 && list % FileListOffset < PaneCount && list < 2 * FileListOffset;
}
// Of a list that has one.
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
