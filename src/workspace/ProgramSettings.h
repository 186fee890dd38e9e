// The settings that hold for the whole program, as they stand in memory.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "workspace/PaneRecord.h"

namespace tarnwell::workspace {

inline constexpr int BookmarkCount = 10;
inline constexpr std::string_view EmptyBookmark = "(empty)";

// The path of a bookmark as menus show it: 101 characters or more become the first 10, "..." and
// the last 87.
inline std::string DisplayPathOf(std::string_view path) {
  return base::Shorten(path, 100, 10, 87);
}

struct BookmarkRecord {
  std::string Path{EmptyBookmark};
  std::string DisplayPath{EmptyBookmark};  // the path as menus show it
};

// Which differences a folder comparison looks at: two bits.
enum CompareMode : std::int32_t { CompareNothing = 0, CompareSize = 1, CompareDate = 2 };

struct ProgramSettings {
  std::string SkinName = "Earl Grey";
  double OnlineVersion = 0;  // number of the last newer version that the user was told of
  bool SkipWin9XWarningPanes = false;
  bool UseEnhancedMode = false;
  bool IsFirstColorCodingOverMax = true;
  bool FirstColorEver = true;
  bool ShowColor = false;
  std::int32_t FileCountMax = 50;  // files in a folder above which lists show no colours
  bool ShowFileIcons = true;
  bool ShowFolderIcons = false;
  bool MinimizeToTaskBar = true;
  bool OperationsInWindow = false;  // shown in a window of their own, not below the panes
  std::int32_t CompareMode = CompareSize | CompareDate;
  std::int32_t Layout = Horizontal;
  std::string FolderFileListing;  // folder of the last exported listing
  std::array<BookmarkRecord, BookmarkCount> Bookmarks;
};

}  // namespace tarnwell::workspace
