// The operations on items of the trash.
#pragma once

#include <vector>

#include "platform/FileOperation.h"
#include "platform/TrashCan.h"

namespace tarnwell::fileops {

// Both leave out null; where nothing is left the request has no items, and is not to be run.

// Puts each item back to where it was, and leaves out what cannot be. A taken name is asked about
// as in every move, and a missing folder too.
platform::OperationRequest RequestToRestore(const std::vector<const platform::TrashedItem*>& items,
                                            const base::PathSyntax& syntax);

// Deletes the items for good, without a question.
platform::OperationRequest RequestToPurge(const std::vector<const platform::TrashedItem*>& items);

}  // namespace tarnwell::fileops
