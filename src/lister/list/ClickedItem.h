// What a click led to.
#pragma once

#include <cstdint>

namespace tarnwell::lister {

// What was clicked, by the numbers of GetClickedItem.
enum ClickedKind : std::int32_t {
  NothingClicked = 0,
  ClickedDriveRoot = 1,
  ClickedFolder = 2,
  ClickedFile = 4,
  ClickedEmptySpace = 8,  // of a file list
};

}  // namespace tarnwell::lister
