// What a file list opens: folders in the form's own way, files by the platform. Messages are let
// through meanwhile.
#pragma once

#include "lister/files/FileListState.h"

namespace tarnwell::lister {

// Enters the folder, or opens the file. Whatever the read has told of the item, a folder is what is
// one now.
void OpenRow(FileListState& files, RowId row);

// Opens all selected files and no folder, if the row is one of the files; else opens the row alone.
void OpenSelectedOr(FileListState& files, RowId row);

}  // namespace tarnwell::lister
