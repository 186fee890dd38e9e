// What the rows of a file list look like and say.
#pragma once

#include <string>

#include "lister/files/FileListState.h"

namespace tarnwell::lister {

// All are for rows on show. For people: valid UTF-8.
std::string FileCellText(const FileListState& files, RowId row, HeadingId heading);
// For other programs: bytes as they are, numbers in digits alone.
std::string FileCellBytes(const FileListState& files, RowId row, HeadingId heading);
RowState FileRowState(const FileListState& files, RowId row);

}  // namespace tarnwell::lister
