// What a click or a key led to.
#pragma once

#include <cstdint>
#include <string>

#include "lister/rows/ListerView.h"

namespace tarnwell::lister {

class ListRows;
struct ListState;

// By the numbers of GetClickedItem.
enum ClickedKind : std::int32_t {
  NothingClicked = 0,
  ClickedDriveRoot = 1,
  ClickedFolder = 2,
  ClickedFile = 4,
  ClickedEmptySpace = 8,  // of a file list
};

// A drive root and the folder of empty space stand whole in Folder, with a separator at the end;
// other items as parent and name.
struct ClickedItem {
  ClickedKind Kind = NothingClicked;
  std::string Folder = {};
  std::string Name = {};
};

bool IsFolder(const ListState& list, const ListRows& rows, RowId row);
// The top of a folder list.
bool IsDriveRoot(const ListState& list, const ListRows& rows, RowId row);
ClickedItem DescribeItem(const ListState& list, const ListRows& rows, RowId row);
// Empty space where the row is none; nothing where what is shown is in no one folder.
ClickedItem DescribeClicked(const ListState& list, const ListRows& rows, RowId row);

}  // namespace tarnwell::lister
