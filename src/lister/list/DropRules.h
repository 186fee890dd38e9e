// Which drops make sense, and what dropped items are called.
#pragma once

#include <string>
#include <string_view>

#include "base/PathSyntax.h"

namespace tarnwell::lister {

// Items: full paths, each ended by a NUL. Whether they may go into the folder by that word, as a
// Drop has it: no folder goes into itself or below itself, and what is in the folder already goes
// there as a copy alone.
bool MayDrop(std::string_view items, std::string_view folder, std::string_view action,
             const base::PathSyntax& syntax);

// The path of one item, the names of more; for showing.
std::string TextOfItems(std::string_view items, const base::PathSyntax& syntax);

}  // namespace tarnwell::lister
