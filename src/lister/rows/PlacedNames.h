// The rows of what an operation brought into the folder of a file list.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "lister/rows/FileRows.h"
#include "platform/FileOperation.h"

namespace tarnwell::lister {

// Of the folder on show.
struct PlacedNames {
  std::unordered_set<std::string> Placed;
  std::unordered_set<std::string> Sources;
};

PlacedNames NamesIn(const std::string& folder, const std::vector<platform::PlacedItem>& placed,
                    const base::PathSyntax& syntax);
// Those placed that have no row, whether on show or not.
std::vector<std::string> MissingNames(const FileRows& rows, const PlacedNames& names);
// The rows on show that were placed, by position from the top.
std::vector<RowId> RowsOf(const FileRows& rows, const PlacedNames& names);
// Whether nothing is selected but these, their sources and the row with the cursor.
bool MaySelect(const FileRows& rows, const PlacedNames& names, RowId current);

}  // namespace tarnwell::lister
