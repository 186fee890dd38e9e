// Rows of a folder that has been read again.
#pragma once

#include <vector>

#include "lister/FileRows.h"
#include "lister/ListerView.h"

namespace tarnwell::lister {

// Makes `rows` what `fresh`, of the same folder, holds, in its order. A row whose name both have
// stays the same row. `partners` is what rows.PairWith(fresh) gave. The view is told each step;
// what it takes grows with the number of rows, not with that of changes.
void MergeRows(FileRows& rows, FileRows&& fresh, const std::vector<RowId>& partners,
               ListerView& view);

}  // namespace tarnwell::lister
