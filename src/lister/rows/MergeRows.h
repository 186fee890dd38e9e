// Rows that come, go or change places, told to the view step by step.
#pragma once

#include <vector>

#include "lister/rows/FileRows.h"
#include "lister/rows/ListerView.h"

namespace tarnwell::lister {

// Makes `order` the order of all rows, and those of them that the filter takes the rows on show.
// Rows that had a place and are not in `order` are gone. The steps that the view is told are few;
// what they take grows with the number of rows, not with that of changes. Changes of cells are the
// caller's to tell.
void ArrangeRows(FileRows& rows, std::vector<RowId> order, const NameFilter& filter,
                 ListerView& view);

// Makes `rows` what `fresh`, of the same folder, holds: its order, and what is on show. A row whose
// name both have stays the same row. `partners` is what rows.PairWith(fresh) gave. The view is told
// each step, as above.
void MergeRows(FileRows& rows, FileRows&& fresh, std::vector<RowId> partners, ListerView& view);

}  // namespace tarnwell::lister
