// The status line of a file list: what is being read, how much is on show and selected, what could
// not be read, how much space is left.
#pragma once

#include <string>

#include "lister/files/FileListState.h"

namespace tarnwell::lister {

// Most useful first, since a narrow pane shows the beginning alone. Valid UTF-8.
std::string FileSummary(const FileListState& files);

// Puts the summary into the status line, and the kinds of marks that rows have. To be called after
// what it tells has changed, rows or a selection say, and to have it back when a job that told of
// itself there is done.
void ShowSummary(FileListState& files);

// Why no row is on show: the folder is empty, cannot be read, or all in it is hidden.
EmptyNote NoteOf(const FileListState& files);

}  // namespace tarnwell::lister
